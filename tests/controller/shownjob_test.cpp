// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "controller/shownjob.h"
#include "support/testclass.h"

#include <QTest>

using namespace quorvale;
using namespace Qt::StringLiterals;

namespace {

ShownJob shown(const JobState &state)
{
    ConversionJob job(QUrl::fromLocalFile(u"/videos/Trip/clip.mkv"_s));
    job.state = state;
    return ShownJob(job);
}

} // namespace

class ShownJobTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void saysWhichFileItIs()
    {
        const ConversionJob job(QUrl::fromLocalFile(u"/videos/Trip/clip.mkv"_s));
        QCOMPARE(ShownJob(job).id(), job.id());
        QCOMPARE(ShownJob(job).fileName(), u"clip.mkv"_s);
        QCOMPARE(ShownJob(job).folderName(), u"Trip"_s);
        QCOMPARE(ShownJob(job).sourcePath(), u"/videos/Trip/clip.mkv"_s);
    }

    void whatIsShownIsLegibleAndWhatIsSaidIsExact()
    {
        ConversionJob job(QUrl::fromLocalFile(u"/videos/a\nb/\u202egnp.mkv"_s));
        job.state = JobState::failed(u"No\u2028.\nNo."_s);
        const ShownJob shownJob(job);
        QCOMPARE(shownJob.legibleFileName(), u"\ufffdgnp.mkv"_s);
        QCOMPARE(shownJob.fileName(), u"\u202egnp.mkv"_s);
        QCOMPARE(shownJob.legibleFolderName(), u"a\ufffdb"_s);
        QCOMPARE(shownJob.folderName(), u"a\nb"_s);
        QCOMPARE(shownJob.legibleMainMessage(), u"No\ufffd.\nNo."_s);
        QCOMPARE(shownJob.mainMessage(), u"No\u2028.\nNo."_s);
    }

    void saysEveryStateInAWord()
    {
        QCOMPARE(shown(JobState::waiting()).stateWord(), u"Ready"_s);
        QCOMPARE(shown(JobState::converting()).stateWord(), u"Converting"_s);
        QCOMPARE(shown(JobState::completed()).stateWord(), u"Complete"_s);
        QCOMPARE(shown(JobState::cancelled()).stateWord(), u"Cancelled"_s);
        QCOMPARE(shown(JobState::failed(u"because"_s)).stateWord(), u"Failed"_s);
    }

    void saysWhichWayTheJobEnded()
    {
        const auto flags = [](const JobState &state) {
            const ShownJob job = shown(state);
            return QList{job.isInProgress(), job.isCompleted(), job.hasFailed()};
        };
        QCOMPARE(flags(JobState::waiting()), (QList{false, false, false}));
        QCOMPARE(flags(JobState::converting()), (QList{true, false, false}));
        QCOMPARE(flags(JobState::completed()), (QList{false, true, false}));
        QCOMPARE(flags(JobState::cancelled()), (QList{false, false, false}));
        QCOMPARE(flags(JobState::failed({})), (QList{false, false, true}));
    }

    void beginsWithTheReasonWhereItIsToBeShown()
    {
        const QString message = u"Press [q] to stop, [?] for help\nIt failed.\nBye."_s;
        const ShownJob job = shown(JobState::failed(message));
        QCOMPARE(job.message(), message);
        QCOMPARE(job.mainMessage(), u"It failed.\nBye."_s);
        QCOMPARE(shown(JobState::waiting()).message(), QString());
        const ShownJob remarked(ConversionJob(QUrl::fromLocalFile(u"/a.mkv"_s)), u"A remark."_s);
        QCOMPARE(remarked.message(), u"A remark."_s);
        QCOMPARE(remarked.legibleMainMessage(), u"A remark."_s);
        QCOMPARE(shown(JobState::waiting()).mainMessage(), QString());
    }

    void isAnotherWhenAnythingOfItIs()
    {
        const ConversionJob job(QUrl::fromLocalFile(u"/videos/clip.mkv"_s));
        ConversionJob failed = job;
        failed.state = JobState::failed(u"because"_s);
        ConversionJob further = job;
        further.progress = 0.5;
        QCOMPARE(ShownJob(job), ShownJob(further));
        QVERIFY(ShownJob(job) != ShownJob(failed));
        QVERIFY(ShownJob(job) != ShownJob(job, u"A remark."_s));
        QVERIFY(ShownJob(job) != ShownJob(ConversionJob(job.source())));
    }
};

QUORVALE_TEST(ShownJobTest)
#include "shownjob_test.moc"
