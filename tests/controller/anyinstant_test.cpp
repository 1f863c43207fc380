// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "support/clips.h"
#include "support/leftovers.h"
#include "support/patience.h"
#include "support/queue.h"
#include "support/testclass.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTest>

#include <functional>
#include <optional>

using namespace quorvale;
using namespace quorvale::test;
using namespace Qt::StringLiterals;

using enum JobState::Case;

// What the user does at any instant of a batch, from before its first tool is started to after its
// last one has ended. The instants are spread over as long as an undisturbed batch takes.

namespace {

void processEventsFor(qint64 nanoseconds)
{
    QElapsedTimer timer;
    timer.start();
    // At least once for any time but none, however long this thread was held up.
    while (nanoseconds > 0) {
        QCoreApplication::processEvents();
        nanoseconds -= timer.nsecsElapsed();
        timer.restart();
    }
}

// A conversion that reports, holds for some milliseconds and reports again.
Script conversion(Script script = {})
{
    return script.out("out_time_ms=2500000\n").wait(3).out("progress=end\n").wait(2);
}

} // namespace

class AnyInstantTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        // What Qt makes once and keeps is there from now on.
        makeQueue();
        QVERIFY(m_queue->runBatch());
        m_queue.reset();
    }

    void init()
    {
        m_leftovers.emplace();
        // How long an undisturbed job takes as busy as the machine is now.
        makeQueue();
        constexpr int jobs = 5;
        for (int i = 1; i < jobs; ++i)
            m_queue->add({u"%1.mkv"_s.arg(i)});
        QElapsedTimer timer;
        timer.start();
        QVERIFY(m_queue->runBatch());
        m_oneJob = timer.nsecsElapsed() / jobs;
        m_queue.reset();
    }
    void cleanup()
    {
        m_queue.reset();
        QCOMPARE(m_leftovers->found(), QString());
    }

    void cancelEndsTheBatch_data()
    {
        QTest::addColumn<Script>("script");
        QTest::addColumn<JobState::Case>("outcome"); // of a conversion that the cancel reaches
        QTest::newRow("the tool dies") << Script() << cancelled;
        QTest::newRow("the tool fails") << Script().catchInterrupt(255) << failed;
        QTest::newRow("the tool succeeds") << Script().catchInterrupt(0) << completed;
        QTest::newRow("the tool goes on") << Script().ignoreInterrupt() << completed;
    }
    void cancelEndsTheBatch()
    {
        QFETCH(const Script, script);
        QFETCH(const JobState::Case, outcome);
        constexpr int instants = 80;
        QMap<JobState::Case, int> outcomes;
        makeQueue();
        m_queue->setConversions(conversion(script));
        for (int instant = 0; instant < instants; ++instant) {
            queueTwoJobs();
            m_queue->model().start();
            processEventsFor(m_oneJob * instant / instants);
            m_queue->model().cancel();
            QVERIFY(m_queue->awaitEnd());
            const JobState::Case state = m_queue->state(0);
            ++outcomes[state];
            // Before a tool has said what it does with an interrupt, it dies of it.
            QVERIFY(state == waiting || state == completed || state == cancelled
                    || state == outcome);
            // A cancel that came late has found the second job's turn.
            QVERIFY(m_queue->state(1) == waiting || state == completed);
            QVERIFY(!m_queue->model().alertMessage());
        }
        QCOMPARE(outcomes.value(waiting), 1); // at the first instant, and at no other
        QVERIFY2(outcomes.value(outcome) > 0, "no cancel has reached the tool");
    }

    void aStartRightAfterACancelledBatchConvertsAll()
    {
        makeQueue();
        m_queue->setConversions(conversion());
        for (int instant = 0; instant < 20; ++instant) {
            queueTwoJobs();
            m_queue->model().start();
            processEventsFor(m_oneJob * instant / 20);
            m_queue->model().cancel();
            m_queue->model().start(); // too early, unless the batch has ended
            QVERIFY(m_queue->awaitEnd());
            // Both jobs may have been done before the cancel.
            QVERIFY(m_queue->model().completedCount() == 2 || m_queue->runBatch());
            QCOMPARE(m_queue->model().completedCount(), 2);
        }
    }

    void stormsOfStartsAndCancelsLeaveAWorkingQueue()
    {
        makeQueue();
        m_queue->setConversions(conversion());
        queueTwoJobs();
        for (int i = 0; i < 2000; ++i) {
            for (int j = i % 5; j > 0; --j)
                m_queue->model().start();
            if (i % 3 == 0)
                QCoreApplication::processEvents();
            for (int j = i % 7; j > 0; --j)
                m_queue->model().cancel();
        }
        QVERIFY(m_queue->awaitEnd());
        if (m_queue->model().completedCount() < 2)
            QVERIFY(m_queue->runBatch());
        QCOMPARE(m_queue->model().completedCount(), 2);
    }

    void aStormOfStartsIsOneBatch()
    {
        makeQueue();
        m_queue->setConversions(conversion());
        queueTwoJobs();
        const qsizetype before = m_queue->tools().runs(u"ffmpeg"_s).size();
        connect(m_queue->model().jobModel(), &JobListModel::changed, this, [this] {
            for (int i = 0; i < 100 && m_queue->model().isConverting(); ++i)
                m_queue->model().start();
        });
        QVERIFY(m_queue->runBatch());
        QCOMPARE(m_queue->model().completedCount(), 2);
        QCOMPARE(m_queue->tools().runs(u"ffmpeg"_s).size() - before, 2);
        QVERIFY(!m_queue->model().alertMessage());
    }

    void aStormOfCancelsEndsTheBatchOnce()
    {
        makeQueue();
        m_queue->setConversions(
            m_queue->tools().untilReleased(Script().countInterrupts()).wait(50));
        queueTwoJobs();
        m_queue->model().start();
        QVERIFY(m_queue->tools().awaitWaiting());
        for (int i = 0; i < 100'000; ++i)
            m_queue->model().cancel();
        m_queue->tools().release();
        QVERIFY(m_queue->awaitEnd());
        QCOMPARE(m_queue->state(0), completed);
        QCOMPARE(m_queue->state(1), waiting);
    }

    void theControllersEndLeavesNothing()
    {
        constexpr int instants = 40;
        for (int instant = 0; instant < instants; ++instant) {
            makeQueue();
            m_queue->setConversions(conversion());
            queueTwoJobs();
            const std::weak_ptr<ConverterViewModel> controller =
                m_queue->model().shared_from_this();
            m_queue->model().handleDrop({QUrl::fromLocalFile(u"/in/dropped.mkv"_s)});
            m_queue->model().start();
            processEventsFor(2 * m_oneJob * instant / instants);
            if (instant % 2 == 0)
                m_queue->model().cancel();
            m_queue->takeModel();
            // Its batch keeps it until then.
            QTRY_VERIFY_WITH_TIMEOUT(controller.expired(), patience);
        }
    }

    void cancelEndsARealConversion()
    {
        m_queue.reset();
        Queue queue(Tools::machine);
        ConverterViewModel &model = queue.model();
        model.setSettings({.useHardware = false});
        const QString clip = makeClip(u"h264.mp4"_s, queue.sources());
        QElapsedTimer timer;
        timer.start();
        QVERIFY(queue.drop(clip, 1) && queue.runBatch());
        QVERIFY(isConverted(queue.job(0)));
        const qint64 whole = timer.nsecsElapsed();

        constexpr int instants = 25;
        for (int instant = 0; instant < instants; ++instant) {
            model.clearCompleted();
            while (model.jobCount() > 0)
                model.remove(model.jobs().first().id());
            model.add({QUrl::fromLocalFile(clip)});
            model.start();
            processEventsFor(whole * instant / instants);
            model.cancel();
            QVERIFY(queue.awaitEnd());
            const JobState &state = model.jobs().first().state;
            const bool isExpected = state.is(waiting) || state.is(completed) || state.is(cancelled)
                                    || state.message().contains(u"received signal 2"_s);
            QVERIFY2(isExpected, qPrintable(state.message()));
        }
    }

private:
    void makeQueue()
    {
        m_queue.emplace();
        m_queue->setConversions(conversion());
        m_queue->add({u"first.mkv"_s});
    }

    // Leaves the queue with two waiting jobs and no traces of the tools' earlier runs.
    void queueTwoJobs()
    {
        ConverterViewModel &model = m_queue->model();
        while (model.jobCount() > 0)
            model.remove(m_queue->id(0));
        m_queue->add({u"1.mkv"_s, u"2.mkv"_s});
        m_queue->tools().forgetRuns();
    }

    qint64 m_oneJob = 0; // nanoseconds
    std::optional<Leftovers> m_leftovers;
    std::optional<Queue> m_queue;
};

QUORVALE_TEST(AnyInstantTest)
#include "anyinstant_test.moc"
