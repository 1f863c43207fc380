// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "desktop/appearanceportal.h"

#include "support/patience.h"
#include "support/privatebus.h"
#include "support/standinportal.h"
#include "support/testclass.h"

#include <QDBusConnection>
#include <QTest>

using namespace quorvale;
using namespace quorvale::test;
using namespace Qt::StringLiterals;

namespace {

const QString appearance = u"org.freedesktop.appearance"_s;
const QString gnomeInterface = u"org.gnome.desktop.interface"_s;
const QString gnomeAccess = u"org.gnome.desktop.a11y.interface"_s;
const QString contrastKey = u"contrast"_s;
const QString animationsKey = u"enable-animations"_s;
const QString kdeGlobals = u"org.kde.kdeglobals.KDE"_s;
const QString durationKey = u"AnimationDurationFactor"_s;

// What the user wants, as it was said last.
struct Wishes : QObject
{
    Wishes()
    {
        connect(&portal, &AppearancePortal::prefersContrast, this,
                [this](bool isWished) { hasContrast = isWished; });
        connect(&portal, &AppearancePortal::prefersStillness, this,
                [this](bool isWished) { isStill = isWished; });
    }

    AppearancePortal portal;
    bool hasContrast = false;
    bool isStill = false;
};

} // namespace

// What desktops say of what a user wishes. What becomes of that is tested with SystemLook.
class AppearancePortalTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        // Before the connection of the process is made.
        qputenv("DBUS_SESSION_BUS_ADDRESS", m_bus.address().toUtf8());
        QVERIFY(QDBusConnection::sessionBus().isConnected());
    }

    void theUsersWishesAreHeard_data()
    {
        QTest::addColumn<QString>("group");
        QTest::addColumn<QString>("key");
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<bool>("isStill");
        QTest::addColumn<bool>("hasContrast");
        const auto add = [](const char *name, const QString &group, const QString &key,
                            const QVariant &value, bool isStill = false, bool hasContrast = false) {
            QTest::newRow(name) << group << key << value << isStill << hasContrast;
        };
        add("contrast", appearance, contrastKey, 1U, false, true);
        add("usual contrast", appearance, contrastKey, 0U);
        add("unknown contrast", appearance, contrastKey, 2U);
        add("contrast as a text", appearance, contrastKey, u"1"_s);
        add("contrast as a boolean", appearance, contrastKey, true);
        add("contrast of another group", gnomeInterface, contrastKey, 1U);
        add("GNOME's contrast", gnomeAccess, u"high-contrast"_s, true, false, true);
        add("GNOME's usual contrast", gnomeAccess, u"high-contrast"_s, false);
        add("GNOME's contrast as a number", gnomeAccess, u"high-contrast"_s, 1U);
        add("stillness", appearance, u"reduced-motion"_s, 1U, true);
        add("usual motion", appearance, u"reduced-motion"_s, 0U);
        add("GNOME's stillness", gnomeInterface, animationsKey, false, true);
        add("GNOME's usual motion", gnomeInterface, animationsKey, true);
        add("GNOME's stillness as a number", gnomeInterface, animationsKey, 0U);
        add("KDE's stillness", kdeGlobals, durationKey, u"0"_s, true);
        add("KDE's slow motion", kdeGlobals, durationKey, u"1.5"_s);
        add("KDE's motion that is no number", kdeGlobals, durationKey, u""_s);
    }
    void theUsersWishesAreHeard()
    {
        QFETCH(const QString, group);
        QFETCH(const QString, key);
        QFETCH(const QVariant, value);
        StandInPortal settings(m_bus, StandInPortal::Settings{{group, {{key, value}}}});
        const Wishes wishes;
        QTRY_VERIFY_WITH_TIMEOUT(wishes.portal.hasAnswered(), patience);
        QTEST(wishes.isStill, "isStill");
        QTEST(wishes.hasContrast, "hasContrast");
    }

    // It says that something is different, not what, and leaves out what is as usual again.
    void plasmasPortalIsAskedAgain()
    {
        const QVariantMap still{{durationKey, u"0"_s}};
        StandInPortal settings(m_bus, StandInPortal::Settings{{kdeGlobals, still}});
        const Wishes wishes;
        QTRY_VERIFY_WITH_TIMEOUT(wishes.isStill, patience);
        settings.prepare(u"ReadAll"_s, {StandInPortal::replySettings({})});
        settings.perform({StandInPortal::signal(u"/KGlobalSettings"_s, u"org.kde.KGlobalSettings"_s,
                                                u"notifyChange"_s, {3, 7})});
        QTRY_VERIFY_WITH_TIMEOUT(!wishes.isStill, patience);
    }

private:
    PrivateBus m_bus;
};

QUORVALE_TEST(AppearancePortalTest)
#include "appearanceportal_test.moc"
