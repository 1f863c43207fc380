// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "controller/batchreport.h"

#include "controller/shownjob.h"
#include "support/queue.h"
#include "support/testclass.h"

#include <QTest>

#include <optional>

using namespace quorvale;
using namespace quorvale::test;
using namespace Qt::StringLiterals;

class BatchReportTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_queue.emplace();
        m_queue->setConversions(Script());
        m_said.clear();
        connect(&model().report(), &BatchReport::said, this,
                [this](const QString &sentence) { m_said << sentence; });
    }

    void sentences_data()
    {
        QTest::addColumn<int>("completed");
        QTest::addColumn<int>("failed");
        QTest::addColumn<int>("left");
        QTest::addColumn<bool>("isCancelled");
        QTest::addColumn<QString>("begin");
        QTest::addColumn<QString>("end");
        const auto row = [](const char *tag, int completed, int failed, int left, bool isCancelled,
                            const QString &begin, const QString &end) {
            QTest::newRow(tag) << completed << failed << left << isCancelled << begin << end;
        };
        row("one", 1, 0, 0, false, u"Converting 1 video."_s, u"Finished: 1 complete."_s);
        row("all", 6, 0, 0, false, u"Converting 6 videos."_s, u"Finished: 6 complete."_s);
        row("one failed", 5, 1, 0, false, u"Converting 6 videos."_s,
            u"Finished: 5 complete, 1 failed."_s);
        row("none complete", 0, 2, 0, false, u"Converting 2 videos."_s,
            u"Finished: 0 complete, 2 failed."_s);
        row("very many", 1200, 43, 0, false, u"Converting 1243 videos."_s,
            u"Finished: 1200 complete, 43 failed."_s);
        row("cancelled", 2, 0, 4, true, u"Converting 6 videos."_s, u"Cancelled: 2 complete."_s);
        row("cancelled after a failure", 2, 1, 3, true, u"Converting 6 videos."_s,
            u"Cancelled: 2 complete, 1 failed."_s);
        // As ffmpeg does when it notices the cancel before the program does.
        row("failed by the cancel", 1, 1, 0, true, u"Converting 2 videos."_s,
            u"Cancelled: 1 complete, 1 failed."_s);
        row("cancelled too late", 2, 0, 0, true, u"Converting 2 videos."_s,
            u"Finished: 2 complete."_s);
    }

    void sentences()
    {
        QFETCH(const int, completed);
        QFETCH(const int, failed);
        QFETCH(const int, left);
        QFETCH(const bool, isCancelled);
        BatchReport report;
        QStringList said;
        connect(&report, &BatchReport::said, this,
                [&](const QString &sentence) { said << sentence; });
        report.begin(completed + failed + left);
        for (int job = 0; job < completed; ++job)
            report.complete();
        ConversionJob job(SourceFile("/in/b.mp4"));
        job.state = JobState::failed(u"[in @ 0x1] Noise\n/in/b.mp4: Invalid data found"_s);
        for (int count = 0; count < failed; ++count)
            report.fail(ShownJob(job));
        report.end(isCancelled);
        QTEST(said.first(), "begin");
        QTEST(said.last(), "end");
        QCOMPARE(said.mid(1, failed),
                 QStringList(failed, u"b.mp4 failed: "_s + ShownJob(job).mainMessage()));
        QCOMPARE(said.size(), failed + 2);
    }

    void eachBatchIsToldOfWhatItHasDone()
    {
        m_queue->setConversion(2, Script().err("No space left on device\n").exit(1));
        m_queue->add({u"a.mkv"_s, u"b.mkv"_s, u"c.mkv"_s});
        QVERIFY(m_queue->runBatch());
        QCOMPARE(m_said,
                 (QStringList{u"Converting 3 videos."_s, u"b.mkv failed: No space left on device"_s,
                              u"Finished: 2 complete, 1 failed."_s}));
        m_said.clear();
        model().requeue(m_queue->id(0));
        QVERIFY(m_queue->runBatch());
        QCOMPARE(m_said, (QStringList{u"Converting 2 videos."_s, u"Finished: 2 complete."_s}));
    }

    void whatIsRemovedMeanwhileIsNotTold()
    {
        start({u"1.mkv"_s, u"2.mkv"_s, u"3.mkv"_s, u"4.mkv"_s});
        model().remove(m_queue->id(0)); // which is being converted
        model().remove(m_queue->id(0));
        m_queue->setConversion(3, Script().exit(1));
        m_queue->tools().release();
        QVERIFY(m_queue->awaitEnd());
        QCOMPARE(m_said.first(), u"Converting 4 videos."_s);
        QCOMPARE(m_said.last(), u"Finished: 1 complete, 1 failed."_s);
        QCOMPARE(m_said.size(), 3);
    }

    void whatIsDoneStaysToldWhenItIsQueuedAgain()
    {
        m_queue->setConversion(2, m_queue->tools().untilReleased());
        m_queue->add({u"1.mkv"_s, u"2.mkv"_s});
        model().start();
        QVERIFY(m_queue->tools().awaitWaiting());
        model().requeue(m_queue->id(0));
        m_queue->tools().release();
        QVERIFY(m_queue->awaitEnd());
        QCOMPARE(m_said.last(), u"Finished: 2 complete."_s);
    }

    void aCancelIsToldWhenItHasTakenEffect()
    {
        start({u"1.mkv"_s, u"2.mkv"_s});
        model().cancel();
        QCOMPARE(m_said.size(), 1);
        m_queue->tools().release();
        QVERIFY(m_queue->awaitEnd());
        QCOMPARE(m_said, (QStringList{u"Converting 2 videos."_s, u"Cancelled: 0 complete."_s}));
    }

    void aBatchWithoutVideosIsNotTold()
    {
        m_queue->add({u"1.mkv"_s});
        model().start();
        model().remove(m_queue->id(0));
        QVERIFY(m_queue->awaitEnd());
        QCOMPARE(m_said, QStringList());
    }

private:
    ConverterViewModel &model() { return m_queue->model(); }

    // Until the first of them is being converted.
    void start(const QStringList &names)
    {
        m_queue->setConversion(1, m_queue->tools().untilReleased());
        m_queue->add(names);
        model().start();
        QVERIFY(m_queue->tools().awaitWaiting());
    }

    std::optional<Queue> m_queue;
    QStringList m_said;
};

QUORVALE_TEST(BatchReportTest)
#include "batchreport_test.moc"
