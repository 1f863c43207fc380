// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "desktop/businstance.h"

#include "model/filepath.h"
#include "support/patience.h"
#include "support/privatebus.h"
#include "support/standinservice.h"
#include "support/testclass.h"

#include <QDBusArgument>
#include <QDBusConnectionInterface>
#include <QDBusPendingReply>
#include <QSignalSpy>
#include <QTest>

#include <climits>

#include <memory>

using namespace quorvale;
using namespace quorvale::test;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

using Place = Instance::Place;

namespace {

const auto name = u"org.quorvale.Quorvale"_s;

// The process that came first.
class StandInFirst : public StandInService
{
public:
    explicit StandInFirst(const PrivateBus &bus, const Script &manner = {reply()})
        : StandInService(bus, name, {{u"Open"_s, manner}, {u"Activate"_s, manner}})
    {
    }
};

} // namespace

class BusInstanceTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_bus = std::make_unique<PrivateBus>(); }
    void cleanup()
    {
        m_instance.reset();
        m_bus.reset();
        qunsetenv("XDG_ACTIVATION_TOKEN");
        qunsetenv("DESKTOP_STARTUP_ID");
    }

    void withoutABusTheWindowOpens()
    {
        const BusInstance instance(QDBusConnection(u"no such bus"_s), {}, {});
        QCOMPARE(instance.place(), Place::own);
    }

    void theFirstHasTheNameAndTheWindow()
    {
        make();
        QVERIFY(m_instance->place() == Place::undecided); // nobody has waited
        QTRY_COMPARE_WITH_TIMEOUT(m_instance->place(), Place::own, patience);
        QCOMPARE(owner(), program().baseService());
    }

    void handsItsFilesToTheFirst()
    {
        const StandInFirst first(*m_bus);
        make({fileUrl("/a/50% #1.mp4"), fileUrl("/caf\xe9.mp4")},
             {{u"activation-token"_s, u"t"_s}});
        QTRY_COMPARE_WITH_TIMEOUT(m_instance->place(), Place::elsewhere, patience);
        QTRY_COMPARE_WITH_TIMEOUT(first.calls(u"Open"_s).size(), 1, patience);
        const QVariantList call = first.calls(u"Open"_s).first();
        QCOMPARE(call[0].toStringList(),
                 (QStringList{u"file:///a/50%25%20%231.mp4"_s, u"file:///caf%E9.mp4"_s}));
        QCOMPARE(qdbus_cast<QVariantMap>(call[1]).value(u"activation-token"_s), QVariant(u"t"_s));
        QCOMPARE(first.calls(u"Activate"_s).size(), 0);
    }

    void withoutFilesItCallsTheFirstToTheFront()
    {
        const StandInFirst first(*m_bus);
        make({}, {{u"desktop-startup-id"_s, u"s"_s}});
        QTRY_COMPARE_WITH_TIMEOUT(m_instance->place(), Place::elsewhere, patience);
        QTRY_COMPARE_WITH_TIMEOUT(first.calls(u"Activate"_s).size(), 1, patience);
        QCOMPARE(qdbus_cast<QVariantMap>(first.calls(u"Activate"_s).first()[0])
                     .value(u"desktop-startup-id"_s),
                 QVariant(u"s"_s));
        QCOMPARE(first.calls(u"Open"_s).size(), 0);
    }

    void aFirstThatOpensNothingLeavesItToThis_data()
    {
        QTest::addColumn<StandInService::Script>("manner");
        QTest::newRow("hangs") << StandInService::Script{};
        QTest::newRow("refuses") << StandInService::Script{StandInService::refuse()};
        QTest::newRow("ends") << StandInService::Script{StandInService::endItself()};
    }
    void aFirstThatOpensNothingLeavesItToThis()
    {
        QFETCH(const StandInService::Script, manner);
        StandInFirst first(*m_bus, manner);
        make({fileUrl("/a.mp4")}, {}, 300ms);
        QTRY_COMPARE_WITH_TIMEOUT(m_instance->place(), Place::own, patience);
        // The next start finds this one, as soon as the first has gone.
        first.end();
        QTRY_COMPARE_WITH_TIMEOUT(owner(), program().baseService(), patience);
        verifyAnswers(callOpen({u"file:///b.mp4"_s}), true);
    }

    void whileItIsAskedTheFirstHoldsNobodyUp()
    {
        const StandInFirst first(*m_bus, {});
        make({fileUrl("/a.mp4")}, {}, 30s);
        QTRY_COMPARE_WITH_TIMEOUT(first.calls(u"Open"_s).size(), 1, patience);
        QCOMPARE(m_instance->place(), Place::undecided);
        // This one may still end without a window.
        verifyAnswers(callOpen({u"file:///b.mp4"_s}, {}, program().baseService()), false);
    }

    void theFirstIsHandedFiles()
    {
        makeFirst();
        QSignalSpy handedOver(m_instance.get(), &Instance::handedOver);
        const QString tooLong = u"file:///"_s + QString(3 * PATH_MAX, u'x') + u".mp4"_s;
        verifyAnswers(callOpen({u"file:///caf%E9.mp4"_s, tooLong, u"file://localhost/b.mp4"_s}),
                      true);
        QCOMPARE(handedOver.size(), 1);
        const auto files = handedOver[0][0].value<QList<QUrl>>();
        QCOMPARE(files.size(), 2);
        QCOMPARE(filePath(files[0]), "/caf\xe9.mp4");
    }

    void theFirstsWindowIsHandedWhatItUses_data()
    {
        QTest::addColumn<QVariant>("token");
        QTest::addColumn<bool>("isUsed");
        QTest::newRow("text") << QVariant(u"t"_s) << true;
        QTest::newRow("as long as it may be") << QVariant(QString(1024, u't')) << true;
        QTest::newRow("longer") << QVariant(QString(1025, u't')) << false;
        QTest::newRow("no text") << QVariant(QByteArray("t")) << false;
    }
    void theFirstsWindowIsHandedWhatItUses()
    {
        QFETCH(const QVariant, token);
        QFETCH(const bool, isUsed);
        makeFirst();
        QSignalSpy handedOver(m_instance.get(), &Instance::handedOver);
        verifyAnswers(callOpen({u"file:///a.mp4"_s}, {{u"activation-token"_s, token},
                                                      {u"desktop-startup-id"_s, u"s"_s},
                                                      {u"key"_s, u"k"_s}}),
                      true);
        QCOMPARE(handedOver.size(), 1);
        QVariantMap used{{u"desktop-startup-id"_s, u"s"_s}};
        if (isUsed)
            used.insert(u"activation-token"_s, token);
        QCOMPARE(handedOver[0][1].toMap(), used);
    }

    void theFirstIsCalledToTheFront()
    {
        makeFirst();
        QSignalSpy handedOver(m_instance.get(), &Instance::handedOver);
        verifyAnswers(call(u"Activate"_s, {QVariantMap()}), true);
        QCOMPARE(handedOver.size(), 1);
        QCOMPARE(handedOver[0][0].value<QList<QUrl>>(), QList<QUrl>());
    }

    void thereAreNoActions()
    {
        makeFirst();
        verifyAnswers(call(u"ActivateAction"_s, {u"new-window"_s, QVariantList(), QVariantMap()}),
                      false);
    }

    void whoseWindowHasClosedIsHandedNothing()
    {
        makeFirst();
        QSignalSpy handedOver(m_instance.get(), &Instance::handedOver);
        m_instance->leave();
        verifyAnswers(callOpen({u"file:///a.mp4"_s}), false);
        QCOMPARE(handedOver.size(), 0);
    }

    // As for one that has hung for a while: the other has opened a window of its own by then.
    void whatComesTooLateIsNotDone()
    {
        makeFirst();
        QSignalSpy handedOver(m_instance.get(), &Instance::handedOver);
        const auto late = ApplicationService::makeCall(name, {fileUrl("/a.mp4")}, {}, -1ms);
        verifyAnswers(caller().asyncCall(late), false);
        QCOMPARE(handedOver.size(), 0);
        const auto inTime = ApplicationService::makeCall(name, {fileUrl("/a.mp4")}, {}, 1min);
        verifyAnswers(caller().asyncCall(inTime), true);
        QCOMPARE(handedOver.size(), 1);
    }

    void thePlatformDataIsTheStarters()
    {
        QCOMPARE(ApplicationService::platformDataOfStart(), QVariantMap());
        qputenv("XDG_ACTIVATION_TOKEN", "t");
        qputenv("DESKTOP_STARTUP_ID", "s_TIME7");
        QCOMPARE(ApplicationService::platformDataOfStart(),
                 (QVariantMap{{u"activation-token"_s, u"t"_s},
                              {u"desktop-startup-id"_s, u"s_TIME7"_s}}));
        QVERIFY(!qEnvironmentVariableIsSet("XDG_ACTIVATION_TOKEN"));
    }

private:
    QDBusConnection program() const { return m_bus->connection(u"program"_s); }
    QDBusConnection caller() const { return m_bus->connection(u"caller"_s); }
    QString owner() const { return caller().interface()->serviceOwner(name).value(); }

    void make(const QList<QUrl> &files = {}, const QVariantMap &platformData = {},
              std::chrono::milliseconds patience = 30s)
    {
        m_instance = std::make_unique<BusInstance>(program(), files, platformData, patience);
    }

    void makeFirst()
    {
        make();
        QTRY_COMPARE_WITH_TIMEOUT(m_instance->place(), Place::own, patience);
    }

    QDBusPendingCall call(const QString &method, const QVariantList &arguments,
                          const QString &service = name) const
    {
        auto message = QDBusMessage::createMethodCall(service, u"/org/quorvale/Quorvale"_s,
                                                      u"org.freedesktop.Application"_s, method);
        message.setArguments(arguments);
        return caller().asyncCall(message);
    }
    QDBusPendingCall callOpen(const QStringList &uris, const QVariantMap &platformData = {},
                              const QString &service = name) const
    {
        return call(u"Open"_s, {uris, platformData}, service);
    }

    static void verifyAnswers(const QDBusPendingCall &call, bool isDone)
    {
        QTRY_VERIFY_WITH_TIMEOUT(call.isFinished(), patience);
        QVERIFY2(call.isError() != isDone, qPrintable(call.error().message()));
    }

    std::unique_ptr<PrivateBus> m_bus;
    std::unique_ptr<BusInstance> m_instance;
};

QUORVALE_TEST(BusInstanceTest)
#include "businstance_test.moc"
