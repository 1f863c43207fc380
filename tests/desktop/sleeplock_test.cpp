// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "desktop/sleeplock.h"

#include "support/patience.h"
#include "support/privatebus.h"
#include "support/scarcity.h"
#include "support/standinservice.h"
#include "support/testclass.h"

#include <QCoreApplication>
#include <QRegularExpression>
#include <QTest>

#include <memory>

using namespace quorvale;
using namespace quorvale::test;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace {

using Script = StandInService::Script;

// The services that grant locks.
struct SessionManager : StandInService
{
    explicit SessionManager(const PrivateBus &bus, const Script &manner = {reply({7U})})
        : StandInService(bus, u"org.gnome.SessionManager"_s,
                         {{u"Inhibit"_s, manner}, {u"Uninhibit"_s, {reply()}}})
    {
    }
};

struct PowerManagement : StandInService
{
    explicit PowerManagement(const PrivateBus &bus, const Script &manner = {reply({8U})})
        : StandInService(bus, u"org.freedesktop.PowerManagement"_s,
                         {{u"Inhibit"_s, manner}, {u"UnInhibit"_s, {reply()}}})
    {
    }
};

struct Login : StandInService
{
    explicit Login(const PrivateBus &systemBus, const Script &manner = {replyLock()})
        : StandInService(systemBus, u"org.freedesktop.login1"_s, {{u"Inhibit"_s, manner}})
    {
    }
};

} // namespace

class SleepLockTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QCoreApplication::setApplicationName(u"Quorvale"_s);
        qputenv("DBUS_SYSTEM_BUS_ADDRESS", m_systemBus.address().toUtf8());
    }

    void init()
    {
        QTest::failOnWarning(QRegularExpression(u"."_s)); // refusals are silent
        m_bus = std::make_unique<PrivateBus>();
        m_lock = std::make_unique<SleepLock>(m_bus->connection(u"program"_s), 50ms);
    }
    void cleanup()
    {
        m_lock.reset();
        m_bus.reset();
    }

    void theSessionManagerIsAskedFirst()
    {
        const SessionManager first(*m_bus);
        const PowerManagement second(*m_bus);
        const Login third(m_systemBus);
        m_lock->setHeld(true);
        m_lock->setHeld(true);
        const auto inhibit = u"Inhibit"_s;
        QTRY_COMPARE_WITH_TIMEOUT(
            first.calls(inhibit),
            QList<QVariantList>(1, {u"org.quorvale.Quorvale"_s, 0U, u"Converting videos"_s, 4U}),
            patience);
        QTest::qWait(100); // for what should not come
        QCOMPARE(first.calls(u"Uninhibit"_s).size(), 0);
        m_lock->setHeld(false);
        QTRY_COMPARE_WITH_TIMEOUT(first.calls(u"Uninhibit"_s), QList<QVariantList>(1, {7U}),
                                  patience);
        QCOMPARE(first.calls(inhibit).size(), 1);
        QCOMPARE(second.calls(inhibit).size(), 0);
        QCOMPARE(third.calls(inhibit).size(), 0);
    }

    void thenPowerManagement_data()
    {
        QTest::addColumn<bool>("isFirstThere");
        QTest::newRow("when there is no session manager") << false;
        QTest::newRow("when the session manager refuses") << true;
    }
    void thenPowerManagement()
    {
        QFETCH(const bool, isFirstThere);
        std::unique_ptr<SessionManager> first;
        if (isFirstThere)
            first = std::make_unique<SessionManager>(*m_bus, Script{StandInService::refuse()});
        const PowerManagement second(*m_bus);
        const Login third(m_systemBus);
        m_lock->setHeld(true);
        QTRY_COMPARE_WITH_TIMEOUT(second.calls(u"Inhibit"_s),
                                  QList<QVariantList>(1, {u"Quorvale"_s, u"Converting videos"_s}),
                                  patience);
        QCOMPARE(second.calls(u"UnInhibit"_s).size(), 0);
        m_lock->setHeld(false);
        QTRY_COMPARE_WITH_TIMEOUT(second.calls(u"UnInhibit"_s), QList<QVariantList>(1, {8U}),
                                  patience);
        QCOMPARE(third.calls(u"Inhibit"_s).size(), 0);
    }

    void thenLogin_data()
    {
        QTest::addColumn<bool>("areOthersThere");
        QTest::newRow("when there is no other") << false;
        QTest::newRow("when the others refuse") << true;
    }
    void thenLogin()
    {
        QFETCH(const bool, areOthersThere);
        std::unique_ptr<SessionManager> first;
        std::unique_ptr<PowerManagement> second;
        if (areOthersThere) {
            first = std::make_unique<SessionManager>(*m_bus, Script{StandInService::refuse()});
            second = std::make_unique<PowerManagement>(*m_bus, Script{StandInService::refuse()});
        }
        const Login third(m_systemBus);
        takeLogin(third);
        m_lock->setHeld(false);
        QTRY_COMPARE_WITH_TIMEOUT(third.calls(u"released"_s).size(), 1, patience);
    }

    void withoutASessionBusLoginIsAsked()
    {
        m_lock = std::make_unique<SleepLock>(QDBusConnection(u"no such bus"_s));
        const Login login(m_systemBus);
        takeLogin(login);
        m_lock.reset();
        QTRY_COMPARE_WITH_TIMEOUT(login.calls(u"released"_s).size(), 1, patience);
    }

    void loginIsAskedWhenThereIsAThread()
    {
        const Login login(m_systemBus);
        {
            const FewThreads none;
            m_lock->setHeld(true);
            QTRY_VERIFY_WITH_TIMEOUT(none.refusals() > 1, patience);
        }
        takeLogin(login);
    }

    void whereAllRefuseNothingIsSaid()
    {
        const SessionManager first(*m_bus, {StandInService::refuse()});
        const PowerManagement second(*m_bus, {StandInService::refuse()});
        const Login third(m_systemBus, {StandInService::refuse()});
        m_lock->setHeld(true);
        QTRY_COMPARE_WITH_TIMEOUT(third.calls(u"Inhibit"_s).size(), 1, patience);
        QTest::qWait(100);
        m_lock->setHeld(false);
        // The next batch asks again.
        first.prepare(u"Inhibit"_s, {StandInService::reply({9U})});
        m_lock->setHeld(true);
        QTRY_COMPARE_WITH_TIMEOUT(first.calls(u"Inhibit"_s).size(), 2, patience);
        QTest::qWait(100);
        m_lock->setHeld(false);
        QTRY_COMPARE_WITH_TIMEOUT(first.calls(u"Uninhibit"_s), QList<QVariantList>(1, {9U}),
                                  patience);
    }

    void whereThereIsNothingNothingIsSaid()
    {
        m_lock->setHeld(true);
        QTest::qWait(200);
        m_lock->setHeld(false);
    }

    void whatIsGrantedTooLateIsGivenBack()
    {
        const SessionManager service(*m_bus, {});
        m_lock->setHeld(true);
        QTRY_COMPARE_WITH_TIMEOUT(service.calls(u"Inhibit"_s).size(), 1, patience);
        m_lock->setHeld(false);
        QTest::qWait(100);
        QCOMPARE(service.calls(u"Uninhibit"_s).size(), 0);
        service.perform({StandInService::reply({5U})});
        QTRY_COMPARE_WITH_TIMEOUT(service.calls(u"Uninhibit"_s), QList<QVariantList>(1, {5U}),
                                  patience);
    }

    void aDescriptorThatComesTooLateIsClosed()
    {
        const Login login(m_systemBus, {});
        m_lock->setHeld(true);
        QTRY_COMPARE_WITH_TIMEOUT(login.calls(u"Inhibit"_s).size(), 1, patience);
        m_lock->setHeld(false);
        login.perform({StandInService::replyLock()});
        QTRY_COMPARE_WITH_TIMEOUT(login.calls(u"released"_s).size(), 1, patience);
    }

    void whoComesInTheMiddleIsAsked()
    {
        const Login login(m_systemBus);
        takeLogin(login);
        auto power = std::make_unique<PowerManagement>(*m_bus);
        QTRY_COMPARE_WITH_TIMEOUT(power->calls(u"Inhibit"_s).size(), 1, patience);
        QTRY_COMPARE_WITH_TIMEOUT(login.calls(u"released"_s).size(), 1, patience);

        power->end(); // and starts again, with nothing but the same numbers
        power = std::make_unique<PowerManagement>(*m_bus);
        QTRY_COMPARE_WITH_TIMEOUT(power->calls(u"Inhibit"_s).size(), 1, patience);
        QTest::qWait(100); // for what should not come
        QCOMPARE(power->calls(u"UnInhibit"_s).size(), 0);
        m_lock->setHeld(false);
        QTRY_COMPARE_WITH_TIMEOUT(power->calls(u"UnInhibit"_s), QList<QVariantList>(1, {8U}),
                                  patience);

        const SessionManager afterTheBatch(*m_bus);
        QTest::qWait(200);
        QCOMPARE(afterTheBatch.calls(u"Inhibit"_s).size(), 0);
    }

    void whoComesBeforeItIsReadyIsAskedLater()
    {
        m_lock = std::make_unique<SleepLock>(m_bus->connection(u"program"_s), 2s);
        m_lock->setHeld(true);
        const StandInService service(*m_bus, u"org.gnome.SessionManager"_s, {});
        QTest::qWait(100);
        service.prepare(u"Inhibit"_s, {StandInService::reply({7U})});
        QTRY_COMPARE_WITH_TIMEOUT(service.calls(u"Inhibit"_s).size(), 1, patience);
    }

    void whenOneGoesForGoodTheNextIsAsked()
    {
        const auto first = std::make_unique<SessionManager>(*m_bus);
        const PowerManagement second(*m_bus);
        const Login third(m_systemBus);
        m_lock->setHeld(true);
        QTRY_COMPARE_WITH_TIMEOUT(first->calls(u"Inhibit"_s).size(), 1, patience);
        first->end();
        QTRY_COMPARE_WITH_TIMEOUT(second.calls(u"Inhibit"_s).size(), 1, patience);
        QCOMPARE(third.calls(u"Inhibit"_s).size(), 0);
    }

    void loginMayComeInTheMiddle()
    {
        m_lock->setHeld(true);
        QTest::qWait(200);
        const Login login(m_systemBus);
        QTRY_VERIFY_WITH_TIMEOUT(!login.calls(u"Inhibit"_s).isEmpty(), patience);
    }

    void theNextBatchHasALockOfItsOwn()
    {
        const SessionManager service(*m_bus, {});
        m_lock->setHeld(true);
        QTRY_COMPARE_WITH_TIMEOUT(service.calls(u"Inhibit"_s).size(), 1, patience);
        m_lock->setHeld(false);
        service.perform({StandInService::reply({1U})});
        service.prepare(u"Inhibit"_s, {StandInService::reply({2U})});
        m_lock->setHeld(true);
        QTRY_COMPARE_WITH_TIMEOUT(service.calls(u"Inhibit"_s).size(), 2, patience);
        QTRY_COMPARE_WITH_TIMEOUT(service.calls(u"Uninhibit"_s), QList<QVariantList>(1, {1U}),
                                  patience);
        QTest::qWait(100);
        m_lock->setHeld(false);
        QTRY_COMPARE_WITH_TIMEOUT(service.calls(u"Uninhibit"_s), (QList<QVariantList>{{1U}, {2U}}),
                                  patience);
    }

private:
    void takeLogin(const StandInService &login)
    {
        m_lock->setHeld(true);
        QTRY_COMPARE_WITH_TIMEOUT(
            login.calls(u"Inhibit"_s),
            QList<QVariantList>(1, {u"sleep"_s, u"Quorvale"_s, u"Converting videos"_s, u"block"_s}),
            patience);
        QTest::qWait(100); // for what should not come
        QCOMPARE(login.calls(u"released"_s).size(), 0);
    }

    PrivateBus m_systemBus;
    std::unique_ptr<PrivateBus> m_bus;
    std::unique_ptr<SleepLock> m_lock;
};

QUORVALE_TEST(SleepLockTest)
#include "sleeplock_test.moc"
