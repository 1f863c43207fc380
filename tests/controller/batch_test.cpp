// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "support/patience.h"
#include "support/queue.h"
#include "support/testclass.h"

#include <QFile>
#include <QSignalSpy>
#include <QTest>

using namespace quorvale;
using namespace quorvale::test;
using namespace Qt::StringLiterals;

using enum JobState::Case;

namespace {

Script success()
{
    return Script().out("out_time_ms=5000000\nprogress=end\n").writeOutput("converted");
}

Script failure(const QByteArray &text)
{
    return Script().err(text).exit(1);
}

} // namespace

class BatchTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void convertsTheQueueInOrder()
    {
        Queue queue;
        queue.setConversions(success());
        queue.add({u"b.mkv"_s, u"a.mkv"_s});
        QVERIFY(queue.runBatch());
        QCOMPARE(queue.state(0), completed);
        QCOMPARE(queue.state(1), completed);
        QCOMPARE(queue.job(0).progress, 1.0);
        QCOMPARE(queue.model().completedCount(), 2);
        QCOMPARE(queue.model().overallProgress(), 1.0);
        QVERIFY(!queue.model().alertMessage());
        const auto runs = queue.tools().runs(u"ffmpeg"_s);
        QCOMPARE(runs[0][3], "/in/b.mkv");
        QCOMPARE(runs[1][3], "/in/a.mkv");
        QVERIFY(QFile::exists(queue.outputPath(u"b_converted.mp4"_s)));
        QVERIFY(QFile::exists(queue.outputPath(u"a_converted.mp4"_s)));
    }

    void theVideoAndWhatItHasBecomeAreShown()
    {
        Queue queue;
        queue.setConversions(success());
        queue.setConversion(2, failure("Invalid data found\n"));
        queue.add({u"a.mkv"_s, u"b.mkv"_s, u"c.mkv"_s});
        ConverterViewModel &model = queue.model();
        QVERIFY(queue.runBatch());
        for (qsizetype row = 0; row < 3; ++row) {
            model.revealSource(queue.id(row));
            model.revealOutput(queue.id(row));
        }
        // Nothing has become of the one that failed.
        const auto url = [](const QString &path) {
            return QUrl::fromLocalFile(path);
        };
        const QList shown{url(u"/in/a.mkv"_s), url(queue.outputPath(u"a_converted.mp4"_s)),
                          url(u"/in/b.mkv"_s), url(u"/in/c.mkv"_s),
                          url(queue.outputPath(u"c_converted.mp4"_s))};
        QCOMPARE(queue.fileManager().revealed, shown);

        const QUuid id = queue.id(0);
        model.requeue(id);
        model.revealOutput(id);
        model.remove(id);
        model.revealSource(id);
        QCOMPARE(queue.fileManager().revealed, shown);
    }

    void aFailedJobDoesNotStopTheBatch()
    {
        Queue queue;
        queue.setConversions(success());
        queue.setConversion(2, failure("Invalid data found\n"));
        queue.add({u"1.mkv"_s, u"2.mkv"_s, u"3.mkv"_s});
        QVERIFY(queue.runBatch());
        QCOMPARE(queue.state(0), completed);
        QVERIFY(queue.job(1).state == JobState::failed(u"Invalid data found"_s));
        QCOMPARE(queue.state(2), completed);
        QVERIFY(!queue.model().alertMessage());
    }

    void aJobThatIsConvertedOnceMoreBeginsAtZero()
    {
        Queue queue;
        queue.setConversion(1, Script().out("out_time_ms=5000000\n").exit(1));
        queue.setConversion(2, Script().exit(1));
        queue.add({u"1.mkv"_s});
        QVERIFY(queue.runBatch());
        QCOMPARE(queue.job(0).progress, 0.5);
        QVERIFY(queue.runBatch());
        QCOMPARE(queue.job(0).progress, 0.0);
    }

    void progressIsFollowedAgainAfterAFloodOfIt()
    {
        Queue queue;
        const QString flooded = queue.tools().path(u"flooded"_s);
        const QString seen = queue.tools().path(u"seen"_s);
        queue.setConversions(Script()
                                 .outRepeatedly(150'000, "out_time_ms=5000000\n")
                                 .touch(flooded)
                                 .await(seen)
                                 .out("out_time_ms=7500000\n")
                                 .exit(1));
        queue.add({u"1.mkv"_s});
        queue.model().start();
        QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(flooded), patience);
        QCoreApplication::sendPostedEvents(); // what is left of it
        QVERIFY(QFile::copy(flooded, seen));
        QVERIFY(queue.awaitEnd());
        QTRY_COMPARE_WITH_TIMEOUT(queue.job(0).progress, 0.75, 5000);
    }

    void aFailedJobKeepsTheProgressItHadReached()
    {
        Queue queue;
        queue.setConversions(Script().out("out_time_ms=5000000\n").exit(1));
        queue.add({u"1.mkv"_s});
        QVERIFY(queue.runBatch());
        QVERIFY(queue.job(0).state == JobState::failed(u"FFmpeg could not convert this file."_s));
        QCOMPARE(queue.job(0).progress, 0.5);
    }

    void jobsGoThroughTheirStates()
    {
        Queue queue;
        queue.setConversions(queue.tools()
                                 .untilReleased(Script().out("out_time_ms=2500000\n"))
                                 .out("progress=end\n"));
        queue.add({u"1.mkv"_s, u"2.mkv"_s});
        queue.model().start();
        QVERIFY(queue.model().isConverting());
        QCOMPARE(queue.state(0), waiting);
        QTRY_COMPARE_WITH_TIMEOUT(queue.job(0).progress, 0.25, patience);
        QCOMPARE(queue.state(0), converting);
        QCOMPARE(queue.state(1), waiting);
        QCOMPARE(queue.model().overallProgress(), 0.125);
        queue.tools().release();
        QVERIFY(queue.awaitEnd());
        QCOMPARE(queue.state(0), completed);
        QCOMPARE(queue.state(1), completed);
    }

    void completedJobsAreNotConvertedAgain()
    {
        Queue queue;
        queue.setConversions(success());
        queue.add({u"1.mkv"_s});
        QVERIFY(queue.runBatch());
        queue.add({u"2.mkv"_s});
        QVERIFY(queue.runBatch());
        QCOMPARE(queue.tools().runs(u"ffmpeg"_s).size(), 2);
    }

    void aFailedJobIsConvertedByTheNextRunWithoutBeingQueuedAgain()
    {
        Queue queue;
        queue.setConversions(success());
        queue.setConversion(1, failure("no\n"));
        queue.add({u"1.mkv"_s});
        QVERIFY(queue.runBatch());
        QCOMPARE(queue.state(0), failed);
        QVERIFY(queue.runBatch());
        QCOMPARE(queue.state(0), completed);
    }

    void aCompletedJobThatIsQueuedAgainIsConvertedAgain()
    {
        Queue queue;
        queue.setConversions(success());
        queue.add({u"1.mkv"_s});
        QVERIFY(queue.runBatch());
        queue.model().requeue(queue.id(0));
        QCOMPARE(queue.state(0), waiting);
        QCOMPARE(queue.job(0).progress, 0.0);
        QVERIFY(queue.runBatch());
        QCOMPARE(queue.state(0), completed);
        QCOMPARE(queue.tools().runs(u"ffmpeg"_s).size(), 2);
    }

    void aFailedJobThatIsQueuedAgainWaitsFromTheBeginning()
    {
        Queue queue;
        queue.setConversions(Script().out("out_time_ms=5000000\n").exit(1));
        queue.add({u"1.mkv"_s});
        QVERIFY(queue.runBatch());
        queue.model().requeue(queue.id(0));
        QVERIFY(queue.job(0).state == JobState::waiting());
        QCOMPARE(queue.job(0).progress, 0.0);
    }

    void aCompletedFileCanBeAddedAgainAFailedOneCannot()
    {
        Queue queue;
        queue.setConversions(success());
        queue.setConversion(2, failure("no\n"));
        queue.add({u"good.mkv"_s, u"bad.mkv"_s});
        QVERIFY(queue.runBatch());
        queue.add({u"good.mkv"_s, u"bad.mkv"_s});
        QCOMPARE(queue.model().jobs().size(), 3);
        queue.add({u"good.mkv"_s});
        QCOMPARE(queue.model().jobs().size(), 3);
    }

    void removingACompletedJobDoesNotAdmitItsFileWhileAnotherJobHasIt()
    {
        Queue queue;
        queue.setConversions(success());
        queue.add({u"1.mkv"_s});
        QVERIFY(queue.runBatch());
        queue.add({u"1.mkv"_s});
        queue.model().remove(queue.id(0));
        QCOMPARE(queue.state(0), waiting);
        queue.add({u"1.mkv"_s});
        QCOMPARE(queue.model().jobs().size(), 1);
    }

    void aCompletedJobThatIsQueuedAgainCountsAsQueued()
    {
        Queue queue;
        queue.setConversions(success());
        queue.add({u"1.mkv"_s});
        QVERIFY(queue.runBatch());
        queue.model().requeue(queue.id(0));
        queue.add({u"1.mkv"_s});
        QCOMPARE(queue.model().jobs().size(), 1);
    }

    void clearingRemovesExactlyTheCompletedJobs()
    {
        Queue queue;
        queue.setConversions(success());
        queue.setConversion(2, failure("no\n"));
        queue.add({u"1.mkv"_s, u"2.mkv"_s, u"3.mkv"_s});
        QVERIFY(queue.runBatch());
        queue.add({u"4.mkv"_s});
        queue.model().clearCompleted();
        QCOMPARE(queue.model().jobs().size(), 2);
        QCOMPARE(queue.state(0), failed);
        QCOMPARE(queue.state(1), waiting);
    }

    void overallProgressCountsCompletedJobsAsWhole()
    {
        Queue queue;
        queue.setConversion(1, Script());
        queue.setConversion(2, Script().out("out_time_ms=5000000\n").exit(1));
        queue.add({u"1.mkv"_s, u"2.mkv"_s});
        QVERIFY(queue.runBatch());
        // As a value does that reaches the main thread after the job's end.
        queue.model().jobModel()->setProgress(queue.id(0), 0.4);
        QCOMPARE(queue.job(0).progress, 0.4);
        queue.add({u"3.mkv"_s});
        QCOMPARE(queue.state(0), completed);
        QCOMPARE(queue.model().overallProgress(), 0.5);
    }

    void sourcesOfTheSameNameGetNumberedOutputs()
    {
        Queue queue;
        queue.setConversions(success());
        queue.model().add(
            {QUrl::fromLocalFile(u"/a/clip.mkv"_s), QUrl::fromLocalFile(u"/b/clip.mp4"_s)});
        QVERIFY(queue.runBatch());
        QVERIFY(QFile::exists(queue.outputPath(u"clip_converted.mp4"_s)));
        QVERIFY(QFile::exists(queue.outputPath(u"clip_converted_2.mp4"_s)));
    }

    void withOverwritingTheSecondReplacesTheFirst()
    {
        Queue queue;
        queue.setConversions(success());
        ConversionSettings settings;
        settings.overwrite = true;
        queue.model().setSettings(settings);
        queue.model().add(
            {QUrl::fromLocalFile(u"/a/clip.mkv"_s), QUrl::fromLocalFile(u"/b/clip.mp4"_s)});
        QVERIFY(queue.runBatch());
        const auto runs = queue.tools().runs(u"ffmpeg"_s);
        QCOMPARE(runs[0].first(), "-y");
        QCOMPARE(runs[0].last(), QFile::encodeName(queue.outputPath(u"clip_converted.mp4"_s)));
        QCOMPARE(runs[1].last(), runs[0].last());
    }

    void aNameThatIsTooLongFailsThatJobOnly()
    {
        Queue queue;
        queue.setConversions(success());
        queue.add({QString(251, u'x') + u".mkv"_s, u"short.mkv"_s});
        QVERIFY(queue.runBatch());
        QCOMPARE(queue.state(0), failed);
        QVERIFY(
            queue.job(0).state.message().startsWith(u"The name of the output file is too long"_s));
        QCOMPARE(queue.state(1), completed);
    }

    void aToolThatVanishesFailsTheRemainingJobs()
    {
        Queue queue;
        queue.setConversions(queue.tools().untilReleased());
        queue.add({u"1.mkv"_s, u"2.mkv"_s});
        queue.model().start();
        QVERIFY(queue.tools().awaitWaiting());
        queue.tools().removeTool(u"ffmpeg"_s);
        queue.tools().release();
        QVERIFY(queue.awaitEnd());
        QCOMPARE(queue.state(0), completed);
        QVERIFY(queue.job(1).state
                == JobState::failed(
                    u"FFmpeg was not found. Install it with Homebrew: brew install ffmpeg"_s));
        QVERIFY(!queue.model().alertMessage());
    }
};

QUORVALE_TEST(BatchTest)
#include "batch_test.moc"
