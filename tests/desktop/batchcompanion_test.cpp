// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "desktop/batchcompanion.h"

#include "support/patience.h"
#include "support/privatebus.h"
#include "support/queue.h"
#include "support/standindock.h"
#include "support/standinservice.h"
#include "support/testclass.h"

#include <QTest>

using namespace quorvale;
using namespace quorvale::test;
using namespace Qt::StringLiterals;

class BatchCompanionTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void staysAwakeAndShowsProgressFromTheStartToTheEnd()
    {
        const PrivateBus bus;
        const StandInService sessionManager(bus, u"org.gnome.SessionManager"_s,
                                            {{u"Inhibit"_s, {StandInService::reply({3U})}},
                                             {u"Uninhibit"_s, {StandInService::reply()}}});
        const StandInDock dock(bus);
        Queue queue;
        const BatchCompanion companion(queue.model(), bus.connection(u"program"_s));
        queue.setConversions(
            Script().writeOutput("converted").out("out_time_ms=10000000\nprogress=end\n"));
        queue.setConversion(1, queue.tools().untilReleased(
                                   Script().writeOutput("converted").out("out_time_ms=5000000\n")));
        queue.add({u"a.mkv"_s, u"b.mkv"_s});
        QTest::qWait(200); // for what should not come
        QCOMPARE(sessionManager.calls(u"Inhibit"_s).size(), 0);
        QVERIFY(dock.shown().isEmpty());

        queue.model().start();
        QVERIFY(queue.tools().awaitWaiting());
        QTRY_COMPARE_WITH_TIMEOUT(dock.shown(), (QList{0, 25}), patience);
        QTRY_COMPARE_WITH_TIMEOUT(sessionManager.calls(u"Inhibit"_s).size(), 1, patience);
        QCOMPARE(sessionManager.calls(u"Uninhibit"_s).size(), 0);

        queue.tools().release();
        QVERIFY(queue.awaitEnd());
        QTRY_COMPARE_WITH_TIMEOUT(sessionManager.calls(u"Uninhibit"_s),
                                  QList<QVariantList>(1, {3U}), patience);
        QTRY_VERIFY_WITH_TIMEOUT(dock.shown().contains(StandInDock::hidden), patience);
        QCOMPARE(dock.shown().last(), StandInDock::hidden);
        QCOMPARE(sessionManager.calls(u"Inhibit"_s).size(), 1);
        // Nothing more comes of the queue alone.
        const auto shown = dock.shown().size();
        queue.model().clearCompleted();
        QTest::qWait(200);
        QCOMPARE(dock.shown().size(), shown);
    }
};

QUORVALE_TEST(BatchCompanionTest)
#include "batchcompanion_test.moc"
