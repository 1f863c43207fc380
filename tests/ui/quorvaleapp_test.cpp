// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "quorvaleapp.h"
#include "service/ffmpegservice.h"
#include "support/patience.h"
#include "support/privatebus.h"
#include "support/standinportal.h"
#include "support/testclass.h"

#include <QApplication>
#include <QFile>
#include <QIcon>
#include <QPalette>
#include <QQmlExtensionPlugin>
#include <QQuickWindow>
#include <QRegularExpression>
#include <QTest>
#include <QTimer>

Q_IMPORT_QML_PLUGIN(QuorvalePlugin)
Q_IMPORT_QML_PLUGIN(Quorvale_StylePlugin)

using namespace quorvale;
using namespace quorvale::test;
using namespace Qt::StringLiterals;

// What a desktop can tell the program's window by.
class QuorvaleAppTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        // Before the connection of the process is made.
        qputenv("DBUS_SESSION_BUS_ADDRESS", m_bus.address().toUtf8());
        const auto font = QString::fromLatin1(StandInPortal::gnomeInterface);
        const auto colors = QString::fromLatin1(StandInPortal::appearance);
        const StandInPortal portal(m_bus);
        portal.prepare(u"ReadAll"_s, {});
        // When everything else is there.
        QTimer::singleShot(500, this, [&] {
            portal.perform(
                {StandInPortal::replySettings({{colors, {{u"color-scheme"_s, 1U}}},
                                               {font, {{u"font-name"_s, u"DejaVu Sans 12"_s}}}})});
        });
        QCOMPARE(m_app.open({}, {}, std::chrono::milliseconds(patience)),
                 QuorvaleApp::Start::window);
    }

    // From its first frame on, which has not been drawn yet.
    void opensAsTheDesktopWants()
    {
        const auto *window = qobject_cast<QQuickWindow *>(QGuiApplication::topLevelWindows()[0]);
        QVERIFY(window->color().lightnessF() < 0.3F);
        QVERIFY(QGuiApplication::palette().color(QPalette::Window).lightnessF() < 0.3F);
        QVERIFY2(window->height() > 640, qPrintable(QString::number(window->height())));
    }

    void namesItsDesktopEntry()
    {
        const QString entry = QGuiApplication::desktopFileName() + u".desktop"_s;
        QVERIFY2(QFile::exists(QStringLiteral(PACKAGING "/") + entry), qPrintable(entry));
    }

    // macOS is not there to be tried, but what its bundle says can be read.
    void itsBundleOffersToOpenWhatIsAccepted()
    {
        QFile file(QStringLiteral(PACKAGING "/Info.plist.in"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QString text = QString::fromUtf8(file.readAll());
        const QString list =
            text.section(u"<key>CFBundleTypeExtensions</key>"_s, 1).section(u"</array>"_s, 0, 0);
        static const QRegularExpression item(u"<string>(.*)</string>"_s);
        QSet<QString> extensions;
        for (const auto &match : item.globalMatch(list))
            extensions << match.captured(1);
        QCOMPARE(extensions, FFmpegService::supportedExtensions());
    }

    void hasAnIconInEverySize_data()
    {
        QTest::addColumn<int>("side");
        for (const int side : {16, 22, 32, 48, 64, 128, 256})
            QTest::addRow("%d", side) << side;
    }
    void hasAnIconInEverySize()
    {
        QFETCH(const int, side);
        QCOMPARE(QGuiApplication::topLevelWindows().size(), 1);
        const QIcon icon = QGuiApplication::topLevelWindows().constFirst()->icon();
        const QImage image = icon.pixmap(QSize(side, side), 1).toImage();
        QCOMPARE(image.size(), QSize(side, side));
        const auto at = [&](double x, double y) {
            return image.pixelColor(int(x * side), int(y * side));
        };
        QCOMPARE(at(0, 0).alpha(), 0); // outside of the round corner
        // From purple to blue
        const QColor begin = at(0.2, 0.2);
        const QColor end = at(0.85, 0.8);
        QCOMPARE(begin.alpha(), 255);
        QCOMPARE(end.alpha(), 255);
        QVERIFY2(begin.red() > end.red() + 60, qPrintable(begin.name() + end.name()));
        QVERIFY2(begin.green() < end.green(), qPrintable(begin.name() + end.name()));
        // The large sparkle
        const QColor sparkle = at(31 / 128.0 + 10.25 * 2.75 / 128, 33 / 128.0 + 10.75 * 2.75 / 128);
        QVERIFY2(sparkle.saturationF() < 0.4F, qPrintable(sparkle.name()));
    }

private:
    PrivateBus m_bus;
    QuorvaleApp m_app;
};

QUORVALE_TEST(QuorvaleAppTest)
#include "quorvaleapp_test.moc"
