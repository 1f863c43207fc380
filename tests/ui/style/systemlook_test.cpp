// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "systemlook.h"

#include "support/patience.h"
#include "support/privatebus.h"

#include <QDBusContext>
#include <QDBusVariant>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QPalette>
#include <QSignalSpy>
#include <QTest>

using namespace quorvale;
using namespace quorvale::test;
using namespace Qt::StringLiterals;

namespace {

// The settings of a desktop portal, which know the colour scheme or nothing.
class FakeSettings : public QObject, protected QDBusContext
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    explicit FakeSettings(QDBusConnection connection) : m_connection(std::move(connection))
    {
        if (!m_connection.registerObject(u"/org/freedesktop/portal/desktop"_s, this,
                                         QDBusConnection::ExportAllSlots
                                             | QDBusConnection::ExportAllSignals)
            || !m_connection.registerService(u"org.freedesktop.portal.Desktop"_s))
            qFatal("Cannot be the portal");
    }
    ~FakeSettings() override
    {
        m_connection.unregisterService(u"org.freedesktop.portal.Desktop"_s);
    }

    QVariant colorScheme; ///< invalid when there is none
    int reads = 0;

    void change(const QString &group, const QString &key, const QVariant &value)
    {
        Q_EMIT SettingChanged(group, key, QDBusVariant(value));
    }

public Q_SLOTS:
    QDBusVariant Read(const QString &group, const QString &key)
    {
        ++reads;
        if (group != u"org.freedesktop.appearance"_s || key != u"color-scheme"_s
            || !colorScheme.isValid()) {
            sendErrorReply(u"org.freedesktop.portal.Error.NotFound"_s,
                           u"Requested setting not found"_s);
            return {};
        }
        return QDBusVariant(QVariant::fromValue(QDBusVariant(colorScheme)));
    }

Q_SIGNALS:
    void SettingChanged(const QString &group, const QString &key, const QDBusVariant &value);

private:
    QDBusConnection m_connection;
};

void setWindowColor(const QColor &color)
{
    QPalette palette;
    palette.setColor(QPalette::Window, color);
    QGuiApplication::setPalette(palette);
    QCoreApplication::processEvents();
}

const QColor lightWindow(0xec, 0xec, 0xee);
const QColor darkWindow(0x22, 0x22, 0x26);
const QString appearance = u"org.freedesktop.appearance"_s;
const QString colorSchemeKey = u"color-scheme"_s;

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
        FakeSettings settings(m_bus.connection(u"portal"_s));
        settings.colorScheme = colorScheme;
        SystemLook look;
        QSignalSpy changed(&look, &SystemLook::changed);
        QTRY_COMPARE_WITH_TIMEOUT(settings.reads, 1, patience);
        QFETCH(const int, changes);
        QTRY_COMPARE_WITH_TIMEOUT(changed.size(), changes, patience);
        QTest::qWait(50); // for what should not come
        QCOMPARE(changed.size(), changes);
        QTEST(look.isDark(), "isDarkOnLight");
        setWindowColor(darkWindow);
        QTEST(look.isDark(), "isDarkOnDark");
        QCOMPARE(settings.reads, 1);
    }

    void aChangeOfTheSettingIsFollowed()
    {
        FakeSettings settings(m_bus.connection(u"portal"_s));
        settings.colorScheme = 2U;
        SystemLook look;
        QSignalSpy changes(&look, &SystemLook::changed);
        QTRY_COMPARE_WITH_TIMEOUT(changes.size(), 1, patience);
        QVERIFY(!look.isDark());
        settings.change(appearance, colorSchemeKey, 1U);
        QTRY_VERIFY_WITH_TIMEOUT(look.isDark(), patience);
        QCOMPARE(changes.size(), 2);
        settings.change(appearance, colorSchemeKey, 2U);
        QTRY_VERIFY_WITH_TIMEOUT(!look.isDark(), patience);
        setWindowColor(darkWindow);
        QVERIFY(!look.isDark());
        settings.change(appearance, colorSchemeKey, 0U);
        QTRY_VERIFY_WITH_TIMEOUT(look.isDark(), patience); // as the palette
    }

    void otherSettingsAreNothing()
    {
        FakeSettings settings(m_bus.connection(u"portal"_s));
        settings.colorScheme = 2U;
        SystemLook look;
        QSignalSpy changes(&look, &SystemLook::changed);
        QTRY_COMPARE_WITH_TIMEOUT(changes.size(), 1, patience);
        settings.change(appearance, u"contrast"_s, 1U);
        settings.change(u"org.example"_s, colorSchemeKey, 1U);
        settings.change(appearance, colorSchemeKey, u"dark"_s);
        settings.change(appearance, colorSchemeKey, 2U);
        QTRY_COMPARE_WITH_TIMEOUT(changes.size(), 2,
                                  patience); // the last, and it came after the others
        QVERIFY(!look.isDark());
    }

    void aPortalThatComesLaterIsHeard()
    {
        SystemLook look;
        QTest::qWait(50);
        FakeSettings settings(m_bus.connection(u"portal"_s));
        settings.change(appearance, colorSchemeKey, 1U);
        QTRY_VERIFY_WITH_TIMEOUT(look.isDark(), patience);
    }

    void theWindowIsThePalettes()
    {
        FakeSettings settings(m_bus.connection(u"portal"_s));
        settings.colorScheme = 1U;
        SystemLook look;
        QTRY_VERIFY_WITH_TIMEOUT(look.isDark(), patience);
        // The desktop has not said so to the palette.
        QCOMPARE(look.window(), lightWindow);
        QVERIFY(!look.isWindowDark());
        setWindowColor(darkWindow);
        QCOMPARE(look.window(), darkWindow);
        QVERIFY(look.isWindowDark());
    }

    void theFixedFontIsFixed()
    {
        const SystemLook look;
        QCOMPARE(look.fixedFamily(), QFontDatabase::systemFont(QFontDatabase::FixedFont).family());
        QVERIFY(!look.fixedFamily().isEmpty());
    }

private:
    PrivateBus m_bus;
};

QTEST_MAIN(SystemLookTest)
#include "systemlook_test.moc"
