// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "service/ffmpegservice.h"
#include "support/programrun.h"
#include "support/testclass.h"
#include "support/virtualdesktop.h"
#include "support/windowdriver.h"

#include <QDir>
#include <QFileInfo>
#include <QImageReader>
#include <QMimeDatabase>
#include <QSettings>
#include <QTest>

#include <algorithm>
#include <csignal>
#include <cstdlib>

using namespace quorvale;
using namespace quorvale::test;
using namespace Qt::StringLiterals;

// The Debian package: what is in it, and whether the program works from wherever it is unpacked,
// without the superuser's rights and without the tree that it was built in.
class PackageTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(
            ChildOfTheTest().run(QStringLiteral(CPACK_PROGRAM),
                                 {u"--config"_s, QStringLiteral(BUILD_TREE "/CPackConfig.cmake"),
                                  u"-B"_s, m_folder.path()}));
        const QStringList packages = QDir(m_folder.path()).entryList({u"quorvale_*.deb"_s});
        QCOMPARE(packages.size(), 1);
        m_package = m_folder.filePath(packages.first());
        QVERIFY(ChildOfTheTest().run(u"dpkg-deb"_s, {u"--extract"_s, m_package, place()}));
    }

    void satisfiesTheDistribution()
    {
        QVERIFY(ChildOfTheTest().run(
            u"lintian"_s, {u"--allow-root"_s, u"--fail-on"_s, u"error,warning"_s, m_package}));
    }

    void asksForWhatItNeeds()
    {
        const QString needed = field(u"Depends"_s);
        const QString recommended = field(u"Recommends"_s);
        // By the program's own code, and by its QML
        for (const auto package : {"libqt6quick6"_L1, "qml6-module-qtquick-layouts"_L1})
            QVERIFY2(needed.contains(package), qPrintable(needed));
        for (const auto package : {"ffmpeg"_L1, "qt6-wayland"_L1}) {
            QVERIFY2(recommended.contains(package), qPrintable(recommended));
            QVERIFY2(!needed.contains(package), qPrintable(needed));
        }
    }

    void saysWhatHasChanged()
    {
        const auto version = ChildOfTheTest().run(
            u"dpkg-parsechangelog"_s, {u"--file"_s, inPlace(u"doc/quorvale/changelog.Debian.gz"_s),
                                       u"--show-field"_s, u"Version"_s});
        QCOMPARE(QString::fromLatin1(version.value_or(QByteArray())).trimmed(),
                 field(u"Version"_s));
    }

    // The freedesktop.org specifications of desktop entries and of icon themes say what is where.
    void hasAnEntryForTheMenu()
    {
        QSettings file(inPlace(u"applications/org.quorvale.Quorvale.desktop"_s),
                       QSettings::IniFormat);
        QCOMPARE(file.childGroups(), QStringList{u"Desktop Entry"_s});
        file.beginGroup(u"Desktop Entry"_s);
        QCOMPARE(file.value("Type").toString(), u"Application"_s);
        QCOMPARE(file.value("Name").toString(), u"Quorvale"_s);
        QVERIFY(!file.value("GenericName").toString().isEmpty());
        QVERIFY(!file.value("Comment").toString().isEmpty());
        QCOMPARE(file.value("Terminal").toString(), u"false"_s);
        // Without it no starter gives out what lets a second start bring the window to the front.
        QCOMPARE(file.value("StartupNotify").toString(), u"true"_s);
        const QStringList command = file.value("Exec").toString().split(u' ');
        QCOMPARE(program(), place() + u"/usr/bin/"_s + command.value(0));
        const QFileInfo executable(program());
        QVERIFY2(executable.isFile() && executable.isExecutable(), qPrintable(program()));
        QCOMPARE(command.sliced(1), QStringList{u"%F"_s}); // local files, all at once
        verifyIcon(file.value("Icon").toString());
    }

    // So that a file manager offers it for these, and for no others.
    void opensTheFilesThatItConverts()
    {
        QFile file(inPlace(u"applications/org.quorvale.Quorvale.desktop"_s));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QStringList offered;
        for (const QByteArray &line : file.readAll().split('\n')) {
            if (line.startsWith("MimeType="))
                offered = QString::fromLatin1(line.sliced(9)).split(u';', Qt::SkipEmptyParts);
        }
        QStringList known; // by all their names
        const QMimeDatabase database;
        for (const QString &extension : FFmpegService::supportedExtensions()) {
            QStringList names;
            for (const auto &type : database.mimeTypesForFileName(u"clip."_s + extension))
                names << type.name() << type.aliases();
            QVERIFY2(std::ranges::any_of(
                         names, [&](const QString &name) { return offered.contains(name); }),
                     qPrintable(extension));
            known += names;
        }
        for (const QString &type : offered) {
            const bool isUnheardOf = !database.mimeTypeForName(type).isValid(); // newer names
            QVERIFY2(type.startsWith("video/"_L1) && (isUnheardOf || known.contains(type)),
                     qPrintable(type));
        }
    }

    void opensItsWindow_data()
    {
        QTest::addColumn<QString>("backend");
        QTest::newRow("usual renderer") << QString();
        QTest::newRow("software renderer") << u"software"_s;
    }
    void opensItsWindow()
    {
        QFETCH(const QString, backend);
        const auto run = newRun(backend);
        run->showOn(m_desktop);
        QVERIFY(run->start());
        WindowDriver window(m_desktop, *run);
        QVERIFY(window.find());
        // The class by which a menu's entry says that it tells the window (StartupWMClass)
        const auto ofItsClass = m_desktop.display().xdotool(
            {u"search"_s, u"--onlyvisible"_s, u"--class"_s, u"^Quorvale$"_s});
        QCOMPARE(QString::fromLatin1(ofItsClass.value_or(QByteArray())).trimmed(), window.window());
        QVERIFY(run->hasMapped("/QtQuick/"));
        QVERIFY(!run->hasMapped(BUILD_TREE "/"));
        QVERIFY(window.close());
        QCOMPARE(run->waitForEnd(), std::optional(0));
        QCOMPARE(run->complaints(), QByteArray());
    }

    void runsOffscreen_data() { opensItsWindow_data(); }
    void runsOffscreen()
    {
        QFETCH(const QString, backend);
        const auto run = newRun(backend);
        run->showNowhere();
        QVERIFY(run->start());
        // It stays until it is told to end.
        QTest::qWait(2000);
        QVERIFY2(run->isRunning(), run->standardError().constData());
        QVERIFY(run->hasMapped("/QtQuick/"));
        QCOMPARE(::kill(run->id(), SIGTERM), 0);
        QCOMPARE(run->waitForEnd(), std::optional(-SIGTERM));
        QCOMPARE(run->complaints(), QByteArray());
    }

private:
    QString place() const { return m_folder.filePath(u"any place"_s); }
    QString inPlace(const QString &path) const { return place() + u"/usr/share/"_s + path; }
    QString program() const { return place() + u"/usr/bin/quorvale"_s; }

    // Of any size, and of the one that icon themes have to have, for those who read no SVG.
    void verifyIcon(const QString &name) const
    {
        const QSize size(48, 48);
        QImageReader icon(inPlace(u"icons/hicolor/scalable/apps/"_s) + name + u".svg"_s);
        icon.setScaledSize(size);
        const QImage drawn = icon.read().convertToFormat(QImage::Format_ARGB32_Premultiplied);
        QVERIFY2(!drawn.isNull(), qPrintable(icon.errorString()));
        const QImage ready = QImage(inPlace(u"icons/hicolor/48x48/apps/"_s) + name + u".png"_s)
                                 .convertToFormat(drawn.format());
        QCOMPARE(ready.size(), size);
        int difference = 0; // of all colours of all pixels, each of which has 255 steps
        for (int y = 0; y < size.height(); ++y) {
            for (int x = 0; x < 4 * size.width(); ++x)
                difference += std::abs(drawn.constScanLine(y)[x] - ready.constScanLine(y)[x]);
        }
        QVERIFY2(difference < 4 * 48 * 48 * 3, qPrintable(QString::number(difference)));
    }

    QString field(const QString &name) const
    {
        const auto value = ChildOfTheTest().run(u"dpkg-deb"_s, {u"--field"_s, m_package, name});
        return QString::fromUtf8(value.value_or(QByteArray())).trimmed();
    }

    std::unique_ptr<ProgramRun> newRun(const QString &backend) const
    {
        auto run = std::make_unique<ProgramRun>(program());
        if (!backend.isEmpty())
            run->set(u"QT_QUICK_BACKEND"_s, backend);
        return run;
    }

    VirtualDesktop m_desktop;
    QTemporaryDir m_folder;
    QString m_package;
};

QUORVALE_TEST(PackageTest)
#include "package_test.moc"
