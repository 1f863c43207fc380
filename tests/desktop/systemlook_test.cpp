// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "desktop/systemlook.h"

#include "support/patience.h"
#include "support/privatebus.h"
#include "support/standinportal.h"
#include "support/testclass.h"

#include <QApplication>
#include <QFontDatabase>
#include <QPalette>
#include <QSignalSpy>
#include <QTest>

using namespace quorvale;
using namespace quorvale::test;
using namespace Qt::StringLiterals;

namespace {

void setWindowColor(const QColor &color)
{
    QPalette palette;
    palette.setColor(QPalette::Window, color);
    QGuiApplication::setPalette(palette);
    QCoreApplication::processEvents();
}

const QFont lastResort(u"Sans Serif"_s, 9);
const QColor lightWindow(0xec, 0xec, 0xee);
const QColor darkWindow(0x22, 0x22, 0x26);
const QString appearance = u"org.freedesktop.appearance"_s;
const QString colorSchemeKey = u"color-scheme"_s;
const QString gnomeInterface = u"org.gnome.desktop.interface"_s;
const QString fontKey = u"font-name"_s;
const QString textScaleKey = u"text-scaling-factor"_s;
const QString gnomeAccess = u"org.gnome.desktop.a11y.interface"_s;
const QString contrastKey = u"contrast"_s;
const QString animationsKey = u"enable-animations"_s;
const QString kdeGlobals = u"org.kde.kdeglobals.KDE"_s;
const QString durationKey = u"AnimationDurationFactor"_s;

} // namespace

class SystemLookTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        // Before the connection of the process is made.
        qputenv("DBUS_SESSION_BUS_ADDRESS", m_bus.address().toUtf8());
        QVERIFY(QDBusConnection::sessionBus().isConnected());
    }

    void init() { setWindowColor(lightWindow); }

    void thePaletteDecidesWithoutAPortal()
    {
        SystemLook look;
        QTest::qWait(50);
        QVERIFY(!look.isDark());
        QSignalSpy changes(&look, &SystemLook::changed);
        setWindowColor(darkWindow);
        QVERIFY(look.isDark());
        QVERIFY(!changes.isEmpty());
        setWindowColor(lightWindow);
        QVERIFY(!look.isDark());
        setWindowColor(QColor(0x70, 0x70, 0x70));
        QVERIFY(look.isDark());
        setWindowColor(QColor(0x90, 0x90, 0x90));
        QVERIFY(!look.isDark());
    }

    void theSettingsDecide_data()
    {
        QTest::addColumn<QVariant>("colorScheme");
        QTest::addColumn<bool>("isDarkOnLight");
        QTest::addColumn<bool>("isDarkOnDark");
        QTest::addColumn<int>("changes");
        QTest::newRow("prefers dark") << QVariant(1U) << true << true << 1;
        QTest::newRow("prefers light") << QVariant(2U) << false << false << 1;
        QTest::newRow("no preference") << QVariant(0U) << false << true << 1;
        QTest::newRow("unknown preference") << QVariant(7U) << false << true << 1;
        QTest::newRow("no setting") << QVariant() << false << true << 0;
        QTest::newRow("no number") << QVariant(u"dark"_s) << false << true << 0;
    }
    void theSettingsDecide()
    {
        QFETCH(const QVariant, colorScheme);
        StandInPortal settings(m_bus, colorScheme);
        SystemLook look;
        QSignalSpy changed(&look, &SystemLook::changed);
        QVERIFY(!look.isKnown());
        QTRY_VERIFY_WITH_TIMEOUT(look.isKnown(), patience);
        QTRY_COMPARE_WITH_TIMEOUT(settings.calls(u"ReadAll"_s),
                                  QList<QVariantList>{{QStringList(
                                      {appearance, gnomeInterface, gnomeAccess, kdeGlobals})}},
                                  patience); // it is said after the answer
        QFETCH(const int, changes);
        QTRY_COMPARE_WITH_TIMEOUT(changed.size(), changes, patience);
        QTest::qWait(50); // for what should not come
        QCOMPARE(changed.size(), changes);
        QTEST(look.isDark(), "isDarkOnLight");
        setWindowColor(darkWindow);
        QTEST(look.isDark(), "isDarkOnDark");
        QCOMPARE(settings.calls(u"ReadAll"_s).size(), 1);
    }

    // So that nobody waits for more.
    void withoutAPortalThatIsKnown()
    {
        const SystemLook look;
        QTRY_VERIFY_WITH_TIMEOUT(look.isKnown(), patience);
    }

    void aChangeOfTheSettingIsFollowed()
    {
        StandInPortal settings(m_bus, 2U);
        SystemLook look;
        QSignalSpy changes(&look, &SystemLook::changed);
        QTRY_COMPARE_WITH_TIMEOUT(changes.size(), 1, patience);
        QVERIFY(!look.isDark());
        settings.changeColorScheme(1U);
        QTRY_VERIFY_WITH_TIMEOUT(look.isDark(), patience);
        QCOMPARE(changes.size(), 2);
        settings.changeColorScheme(2U);
        QTRY_VERIFY_WITH_TIMEOUT(!look.isDark(), patience);
        setWindowColor(darkWindow);
        QVERIFY(!look.isDark());
        settings.changeColorScheme(0U);
        QTRY_VERIFY_WITH_TIMEOUT(look.isDark(), patience); // as the palette
    }

    void otherSettingsAreNothing()
    {
        StandInPortal settings(m_bus, 2U);
        SystemLook look;
        QSignalSpy changes(&look, &SystemLook::changed);
        QTRY_COMPARE_WITH_TIMEOUT(changes.size(), 1, patience);
        settings.change(appearance, u"accent-color"_s, 1U);
        settings.change(u"org.example"_s, colorSchemeKey, 1U);
        settings.change(appearance, colorSchemeKey, u"dark"_s);
        settings.changeColorScheme(2U);
        QTRY_COMPARE_WITH_TIMEOUT(changes.size(), 2,
                                  patience); // the last, and it came after the others
        QVERIFY(!look.isDark());
    }

    void aPortalThatComesLaterIsHeard()
    {
        SystemLook look;
        QTest::qWait(50);
        StandInPortal settings(m_bus, 1U);
        QTRY_VERIFY_WITH_TIMEOUT(look.isDark(), patience);
        settings.changeColorScheme(2U);
        QTRY_VERIFY_WITH_TIMEOUT(!look.isDark(), patience);
    }

    // What Qt draws is dark in a dark desktop, also when that has not said so to the palette.
    void thePaletteGoesWithTheSettings()
    {
        StandInPortal settings(m_bus, 1U);
        SystemLook look;
        QTRY_VERIFY_WITH_TIMEOUT(look.isDark(), patience);
        verifyPalette(true);
        QVERIFY(look.window().lightnessF() < 0.3F);
        settings.changeColorScheme(2U);
        QTRY_VERIFY_WITH_TIMEOUT(!look.isDark(), patience);
        QCOMPARE(look.window(), lightWindow);
        settings.changeColorScheme(1U);
        QTRY_VERIFY_WITH_TIMEOUT(look.isDark(), patience);
        verifyPalette(true);
        settings.changeColorScheme(0U);
        QTRY_VERIFY_WITH_TIMEOUT(!look.isDark(), patience);
        QCOMPARE(look.window(), lightWindow);
        setWindowColor(darkWindow);
        QVERIFY(look.isDark());
        settings.changeColorScheme(2U);
        QTRY_VERIFY_WITH_TIMEOUT(!look.isDark(), patience);
        verifyPalette(false);
    }

    void aFittingPaletteOfTheDesktopsStays()
    {
        setWindowColor(darkWindow);
        StandInPortal settings(m_bus, 1U);
        SystemLook look;
        QSignalSpy changes(&look, &SystemLook::changed);
        QTRY_COMPARE_WITH_TIMEOUT(changes.size(), 1, patience);
        QCOMPARE(look.window(), darkWindow);
        settings.changeColorScheme(2U);
        QTRY_VERIFY_WITH_TIMEOUT(!look.isDark(), patience);
        verifyPalette(false);
        // The desktop's palette changes later than its settings.
        setWindowColor(lightWindow);
        QCOMPARE(look.window(), lightWindow);
    }

    void thePlatformsPaletteComesBackAsItIs()
    {
        QGuiApplication::setPalette(QPalette());
        const QPalette platforms = QGuiApplication::palette();
        StandInPortal settings(m_bus, 1U);
        SystemLook look;
        QTRY_VERIFY_WITH_TIMEOUT(look.isDark(), patience);
        QVERIFY(QGuiApplication::palette() != platforms);
        settings.changeColorScheme(0U);
        QTRY_VERIFY_WITH_TIMEOUT(!look.isDark(), patience);
        QCOMPARE(QGuiApplication::palette(), platforms);
        // Nothing is set, so that what the platform gives next is followed.
        QCOMPARE(QGuiApplication::palette().resolveMask(), 0ULL);
    }

    void theFontIsTheDesktops()
    {
        QApplication::setFont(QFont(u"DejaVu Serif"_s, 16));
        const SystemLook look;
        QSignalSpy changes(&look, &SystemLook::fontChanged);
        QCOMPARE(look.interfaceFont().family(), u"DejaVu Serif"_s);
        QCOMPARE(look.interfaceFont().pointSize(), 16);
        QApplication::setFont(QFont(u"DejaVu Sans"_s, 11));
        QVERIFY(!changes.isEmpty());
        QCOMPARE(look.interfaceFont().family(), u"DejaVu Sans"_s);
    }

    // Where Qt knows none; and it is the one that Qt's own dialogs take, too.
    void theSettingsFontStepsIn()
    {
        QApplication::setFont(lastResort);
        StandInPortal settings(m_bus);
        SystemLook look;
        QCOMPARE(look.interfaceFont().pointSizeF(), 9.75);
        QSignalSpy changes(&look, &SystemLook::fontChanged);
        QTRY_VERIFY_WITH_TIMEOUT(look.isKnown(), patience);
        settings.change(gnomeInterface, fontKey, u"DejaVu Serif 11"_s);
        QTRY_VERIFY_WITH_TIMEOUT(!changes.isEmpty(), patience);
        QCOMPARE(QApplication::font().family(), u"DejaVu Serif"_s);
        QCOMPARE(look.interfaceFont(), QApplication::font());
        settings.change(gnomeInterface, fontKey, u"nothing"_s);
        settings.change(gnomeInterface, fontKey, 12U);
        settings.change(gnomeInterface, fontKey, u"DejaVu Sans 16"_s);
        QTRY_COMPARE_WITH_TIMEOUT(look.interfaceFont().pointSize(), 16, patience);
    }

    void theSettingsFontIsReadAtTheStart()
    {
        QApplication::setFont(lastResort);
        const QVariantMap font{{fontKey, u"DejaVu Serif 11"_s}};
        StandInPortal settings(m_bus, StandInPortal::Settings{{gnomeInterface, font}});
        const SystemLook look;
        QTRY_COMPARE_WITH_TIMEOUT(QApplication::font().family(), u"DejaVu Serif"_s, patience);
    }

    void theSettingsFontDoesNotReplaceOneThatQtKnows()
    {
        QApplication::setFont(QFont(u"DejaVu Sans"_s, 12));
        StandInPortal settings(m_bus);
        SystemLook look;
        settings.change(gnomeInterface, fontKey, u"DejaVu Serif 11"_s);
        settings.changeColorScheme(1U); // which comes after it
        QTRY_VERIFY_WITH_TIMEOUT(look.isDark(), patience);
        QCOMPARE(QApplication::font().family(), u"DejaVu Sans"_s);
    }

    void theTextsAreAsLargeAsTheUserWants_data()
    {
        QTest::addColumn<QVariant>("factor");
        QTest::addColumn<double>("points");
        QTest::newRow("large") << QVariant(1.25) << 12.5;
        QTest::newRow("largest") << QVariant(3.0) << 30.0;
        QTest::newRow("small") << QVariant(0.5) << 5.0;
        QTest::newRow("too large") << QVariant(3.1) << 10.0;
        QTest::newRow("too small") << QVariant(0.4) << 10.0;
        QTest::newRow("not a number") << QVariant(qQNaN()) << 10.0;
        QTest::newRow("no number") << QVariant(u"1.25"_s) << 10.0;
    }
    void theTextsAreAsLargeAsTheUserWants()
    {
        QFETCH(const QVariant, factor);
        QApplication::setFont(QFont(u"DejaVu Sans"_s, 10));
        const QVariantMap textScale{{textScaleKey, factor}};
        StandInPortal settings(m_bus, StandInPortal::Settings{{gnomeInterface, textScale}});
        SystemLook look;
        QTRY_VERIFY_WITH_TIMEOUT(look.isKnown(), patience);
        QTEST(look.interfaceFont().pointSizeF(), "points");
        QCOMPARE(QApplication::font().pointSize(), 10); // not twice
        QSignalSpy changes(&look, &SystemLook::fontChanged);
        settings.change(gnomeInterface, textScaleKey, 1.5);
        QTRY_VERIFY_WITH_TIMEOUT(!changes.isEmpty(), patience);
        QCOMPARE(look.interfaceFont().pointSizeF(), 15.0);
        QFont inPixels(u"DejaVu Sans"_s);
        inPixels.setPixelSize(16);
        QApplication::setFont(inPixels);
        QCOMPARE(look.interfaceFont().pixelSize(), 24);
    }

    void aChangeOfTheUsersWishesIsFollowed()
    {
        StandInPortal settings(m_bus);
        const SystemLook look;
        QSignalSpy changes(&look, &SystemLook::changed);
        QTRY_VERIFY_WITH_TIMEOUT(look.isKnown(), patience);
        settings.change(appearance, contrastKey, 1U);
        QTRY_VERIFY_WITH_TIMEOUT(look.hasContrast(), patience);
        settings.change(gnomeInterface, animationsKey, false);
        QTRY_VERIFY_WITH_TIMEOUT(!look.animates(), patience);
        settings.change(kdeGlobals, durationKey, u"0"_s);
        settings.change(gnomeInterface, animationsKey, true);
        settings.change(appearance, contrastKey, u"none"_s);
        settings.change(appearance, contrastKey, 0U); // which comes after them
        QTRY_VERIFY_WITH_TIMEOUT(!look.hasContrast(), patience);
        QVERIFY(!look.animates()); // as long as one says so
        QCOMPARE(changes.size(), 3);
    }

    void theFixedFontIsFixed()
    {
        const SystemLook look;
        QCOMPARE(look.fixedFamily(), QFontDatabase::systemFont(QFontDatabase::FixedFont).family());
        QVERIFY(!look.fixedFamily().isEmpty());
    }

private:
    static void verifyPalette(bool isDark)
    {
        const QPalette palette = QGuiApplication::palette();
        const auto lightness = [&palette](QPalette::ColorGroup group, QPalette::ColorRole role) {
            return palette.color(group, role).lightnessF();
        };
        for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
            for (const auto role : {QPalette::Window, QPalette::Base, QPalette::AlternateBase,
                                    QPalette::Button, QPalette::ToolTipBase})
                QCOMPARE(lightness(group, role) < 0.4F, isDark);
        }
        for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText,
                                QPalette::ToolTipText, QPalette::Link})
            QCOMPARE(lightness(QPalette::Active, role) > 0.6F, isDark);
    }

    PrivateBus m_bus;
};

QUORVALE_TEST(SystemLookTest)
#include "systemlook_test.moc"
