// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "support/patience.h"
#include "support/queue.h"
#include "support/testclass.h"

#include <QTest>

#include <optional>

using namespace quorvale;
using namespace quorvale::test;
using namespace Qt::StringLiterals;

using enum JobState::Case;

// What the user does to the queue and to the batch while the batch runs.

class BatchEditingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_queue.emplace(); }

    void aJobAddedDuringARunWaitsForTheNext()
    {
        startWith({u"1.mkv"_s});
        m_queue->add({u"2.mkv"_s});
        finish();
        QCOMPARE(m_queue->state(0), completed);
        QCOMPARE(m_queue->state(1), waiting);
        QVERIFY(m_queue->runBatch());
        QCOMPARE(m_queue->state(1), completed);
    }

    void theResultOfARemovedJobIsDroppedAndTheRunGoesOn()
    {
        startWith({u"1.mkv"_s, u"2.mkv"_s});
        m_queue->model().remove(m_queue->id(0));
        finish();
        QCOMPARE(m_queue->model().jobs().size(), 1);
        QCOMPARE(m_queue->state(0), completed);
        QCOMPARE(m_queue->tools().runs(u"ffmpeg"_s).size(), 2);
    }

    void aJobRemovedBeforeItsTurnIsSkipped()
    {
        startWith({u"1.mkv"_s, u"2.mkv"_s, u"3.mkv"_s});
        m_queue->model().remove(m_queue->id(1));
        finish();
        const auto runs = m_queue->tools().runs(u"ffmpeg"_s);
        QCOMPARE(runs.size(), 2);
        QCOMPARE(runs[1][3], "/in/3.mkv");
    }

    void theConvertingJobQueuedAgainIsCompletedByItsConversion()
    {
        startWith({u"1.mkv"_s});
        m_queue->model().requeue(m_queue->id(0));
        QCOMPARE(m_queue->state(0), waiting);
        QCOMPARE(m_queue->job(0).progress, 0.0);
        finish();
        QCOMPARE(m_queue->state(0), completed);
    }

    void aCompletedJobQueuedAgainDuringTheRunWaitsForTheNext()
    {
        m_queue->setConversion(1, Script());
        m_queue->setConversion(2, m_queue->tools().untilReleased());
        m_queue->add({u"1.mkv"_s, u"2.mkv"_s});
        m_queue->model().start();
        QVERIFY(m_queue->tools().awaitWaiting());
        m_queue->model().requeue(m_queue->id(0));
        finish();
        QCOMPARE(m_queue->state(0), waiting);
        QCOMPARE(m_queue->state(1), completed);
    }

    void movingDoesNothing()
    {
        startWith({u"1.mkv"_s, u"2.mkv"_s, u"3.mkv"_s});
        const QList<QUuid> order{m_queue->id(0), m_queue->id(1), m_queue->id(2)};
        m_queue->model().moveJob(order[2], -1);
        m_queue->model().moveJobs({1}, 0);
        m_queue->model().moveJobs({0, 2}, 2);
        QCOMPARE((QList<QUuid>{m_queue->id(0), m_queue->id(1), m_queue->id(2)}), order);
        finish();
    }

    void settingsAndFolderChangedDuringARunApplyToTheNext()
    {
        const FileTree elsewhere;
        startWith({u"1.mkv"_s, u"2.mkv"_s});
        m_queue->model().chooseCodec(2);
        m_queue->choose(elsewhere.root());
        finish();
        for (const auto &run : m_queue->tools().runs(u"ffmpeg"_s)) {
            QVERIFY(run.contains("h264_videotoolbox"));
            QVERIFY(run.last().startsWith(m_queue->outputPath(QString()).toUtf8()));
        }
        m_queue->add({u"3.mkv"_s});
        QVERIFY(m_queue->runBatch());
        const QList<QByteArray> next = m_queue->tools().runs(u"ffmpeg"_s).last();
        QVERIFY(next.contains("prores_videotoolbox"));
        QCOMPARE(next.last(), elsewhere.path(u"3_converted.mov"_s).toUtf8());
    }

    void clearingDuringARunKeepsTheConvertingJob()
    {
        startWith({u"1.mkv"_s});
        m_queue->model().clearCompleted();
        QCOMPARE(m_queue->model().jobs().size(), 1);
        finish();
    }

    void cancelWithoutARunChangesNothing()
    {
        m_queue->add({u"1.mkv"_s});
        m_queue->model().cancel();
        QCOMPARE(m_queue->state(0), waiting);
        QVERIFY(!m_queue->model().isConverting());
        QVERIFY(!m_queue->model().alertMessage());
    }

    void aCancelAfterARunDoesNotPreventTheNext()
    {
        m_queue->setConversions(Script());
        m_queue->add({u"1.mkv"_s});
        QVERIFY(m_queue->runBatch());
        m_queue->model().cancel();
        m_queue->add({u"2.mkv"_s});
        QVERIFY(m_queue->runBatch());
        QCOMPARE(m_queue->state(1), completed);
    }

    void cancelEndsTheJobAndTheRun()
    {
        startWith({u"1.mkv"_s, u"2.mkv"_s}, Script().out("out_time_ms=2500000\n"));
        QTRY_COMPARE_WITH_TIMEOUT(m_queue->job(0).progress, 0.25, patience);
        m_queue->model().cancel();
        QVERIFY(m_queue->awaitEnd());
        QCOMPARE(m_queue->state(0), cancelled);
        QCOMPARE(m_queue->job(0).progress, 0.25);
        QCOMPARE(m_queue->state(1), waiting);
        QVERIFY(!m_queue->model().alertMessage());
    }

    void cancelledJobsAreConvertedByTheNextRun()
    {
        startWith({u"1.mkv"_s, u"2.mkv"_s});
        m_queue->model().cancel();
        QVERIFY(m_queue->awaitEnd());
        m_queue->tools().release();
        QVERIFY(m_queue->runBatch());
        QCOMPARE(m_queue->state(0), completed);
        QCOMPARE(m_queue->state(1), completed);
    }

    void aToolThatEndsByItselfAtACancelIsAFailureAndTheRunEnds()
    {
        startWith({u"1.mkv"_s, u"2.mkv"_s},
                  Script().err("received signal 2\n").catchInterrupt(255));
        m_queue->model().cancel();
        QVERIFY(m_queue->awaitEnd());
        QVERIFY(m_queue->job(0).state == JobState::failed(u"received signal 2"_s));
        QCOMPARE(m_queue->state(1), waiting);
    }

    void aToolThatSucceedsInSpiteOfACancelIsASuccessAndTheRunEnds()
    {
        startWith({u"1.mkv"_s, u"2.mkv"_s}, Script().catchInterrupt(0));
        m_queue->model().cancel();
        QVERIFY(m_queue->awaitEnd());
        QCOMPARE(m_queue->state(0), completed);
        QCOMPARE(m_queue->state(1), waiting);
    }

    void aCancelDuringThePreparationStopsTheRunBeforeTheNextJob()
    {
        m_queue->tools().setScript(u"ffprobe"_s, m_queue->tools().untilReleased().out(
                                                     R"({"format": {"duration": "10"}})"));
        m_queue->setConversions(Script());
        m_queue->add({u"1.mkv"_s, u"2.mkv"_s});
        m_queue->model().start();
        QVERIFY(m_queue->tools().awaitWaiting());
        m_queue->model().cancel();
        finish();
        QCOMPARE(m_queue->state(0), completed);
        QCOMPARE(m_queue->state(1), waiting);
        // Without an answer from ffprobe, ffmpeg would have been asked as well.
        QCOMPARE(m_queue->tools().runs(u"ffmpeg"_s).size(), 1);
    }

    void aCancelBetweenTwoJobsKeepsTheNextWaiting()
    {
        m_queue->setConversions(Script());
        m_queue->add({u"1.mkv"_s, u"2.mkv"_s});
        connect(m_queue->model().jobModel(), &JobListModel::changed, this, [this] {
            if (m_queue->state(0) == completed)
                m_queue->model().cancel();
        });
        m_queue->model().start();
        QVERIFY(m_queue->awaitEnd());
        QCOMPARE(m_queue->state(0), completed);
        QCOMPARE(m_queue->state(1), waiting);
        QCOMPARE(m_queue->tools().runs(u"ffmpeg"_s).size(), 1);
    }

    void aCancelRightAfterTheStartConvertsNothing()
    {
        m_queue->setConversions(Script());
        m_queue->add({u"1.mkv"_s});
        m_queue->model().start();
        m_queue->model().cancel();
        QVERIFY(m_queue->awaitEnd());
        QCOMPARE(m_queue->state(0), waiting);
        QVERIFY(m_queue->tools().runs(u"ffmpeg"_s).isEmpty());
    }

    void aJobRemovedRightAfterTheStartIsNotConverted()
    {
        m_queue->setConversions(Script());
        m_queue->add({u"1.mkv"_s});
        m_queue->model().start();
        m_queue->model().remove(m_queue->id(0));
        QVERIFY(m_queue->awaitEnd());
        QVERIFY(m_queue->tools().runs(u"ffmpeg"_s).isEmpty());
    }

    void theBatchKeepsTheControllerAliveAndNothingElseDoes()
    {
        startWith({u"1.mkv"_s});
        const std::weak_ptr<ConverterViewModel> controller = m_queue->model().shared_from_this();
        m_queue->takeModel();
        QVERIFY(!controller.expired());
        m_queue->tools().release();
        QTRY_VERIFY_WITH_TIMEOUT(controller.expired(), patience);
        QCOMPARE(m_queue->tools().runs(u"ffmpeg"_s).size(), 1);
    }

private:
    // Starts a batch and waits until the first conversion does `beginning` and holds.
    void startWith(const QStringList &names, const Script &beginning = {})
    {
        m_queue->setConversions(m_queue->tools().untilReleased(beginning));
        m_queue->add(names);
        m_queue->model().start();
        QVERIFY(m_queue->tools().awaitWaiting());
        QCOMPARE(m_queue->state(0), converting);
    }

    void finish()
    {
        m_queue->tools().release();
        QVERIFY(m_queue->awaitEnd());
    }

    std::optional<Queue> m_queue;
};

QUORVALE_TEST(BatchEditingTest)
#include "batchediting_test.moc"
