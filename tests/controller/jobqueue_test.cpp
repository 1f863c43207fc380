// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "controller/converterviewmodel.h"
#include "support/fatal.h"
#include "support/filetree.h"
#include "support/recordedfilemanager.h"
#include "support/recordedpanel.h"
#include "support/testclass.h"

#include <QSignalSpy>
#include <QTest>

#include <limits>

using namespace quorvale;
using namespace quorvale::test;
using namespace Qt::StringLiterals;

class JobQueueTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_model = ConverterViewModel::create(std::make_unique<RecordedPanel>(),
                                             std::make_unique<RecordedFileManager>());
    }

    void startsEmpty()
    {
        QVERIFY(m_model->jobs().isEmpty());
        QCOMPARE(m_model->completedCount(), 0);
        QCOMPARE(m_model->overallProgress(), 0.0);
        QVERIFY(!m_model->destination());
        QVERIFY(!m_model->isConverting());
        QVERIFY(!m_model->isDropTargeted());
        QVERIFY(!m_model->alertMessage());
    }

    void aFolderBecomesJobsInNameOrderBehindTheOthers()
    {
        const FileTree tree;
        const FileTree earlier;
        m_model->add({earlier.addFile(u"zebra.mp4"_s)});
        tree.addFiles({u"b.mp4"_s, u"a.MOV"_s, u"c.txt"_s, u".hidden.mp4"_s, u"clip10.mkv"_s,
                       u"clip9.mkv"_s});
        m_model->add({tree.root()});
        QCOMPARE(names(), (QStringList{u"zebra.mp4"_s, u"a.MOV"_s, u"b.mp4"_s, u"clip9.mkv"_s,
                                       u"clip10.mkv"_s}));
        for (const ConversionJob &job : m_model->jobs()) {
            QVERIFY(job.state == JobState::waiting());
            QCOMPARE(job.progress, 0.0);
        }
    }

    void subFoldersAreOrderedByFileNameAlone()
    {
        const FileTree tree;
        tree.addFiles({u"a/z.mp4"_s, u"b/m.mp4"_s, u"c/a.mp4"_s, u"n.mp4"_s});
        m_model->add({tree.root()});
        QCOMPARE(names(), (QStringList{u"a.mp4"_s, u"m.mp4"_s, u"n.mp4"_s, u"z.mp4"_s}));
    }

    void theSameFileInTwoCallsIsOneJob()
    {
        const FileTree tree;
        const QUrl clip = tree.addFile(u"clip.mp4"_s);
        m_model->add({clip});
        m_model->add({clip});
        QCOMPARE(m_model->jobs().size(), 1);
    }

    void theSameFileTwiceInOneCallIsTwoJobs()
    {
        const FileTree tree;
        const QUrl clip = tree.addFile(u"clip.mp4"_s);
        m_model->add({clip, clip});
        QCOMPARE(m_model->jobs().size(), 2);
        QVERIFY(m_model->jobs()[0].id() != m_model->jobs()[1].id());
    }

    void aFolderAndAFileInItInOneCallAreTwoJobs()
    {
        const FileTree tree;
        const QUrl clip = tree.addFile(u"clip.mp4"_s);
        m_model->add({tree.root(), clip});
        QCOMPARE(m_model->jobs().size(), 2);
    }

    void theSameFileByAnotherPathIsOneJob()
    {
        const FileTree tree;
        tree.addFile(u"sub/clip.mp4"_s);
        m_model->add({tree.url(u"sub/clip.mp4"_s)});
        m_model->add({tree.url(u"sub/../sub/./clip.mp4"_s)});
        QCOMPARE(m_model->jobs().size(), 1);
    }

    void theSourceIsKeptAsItWasFound()
    {
        const FileTree tree;
        tree.addFile(u"sub/clip.mp4"_s);
        const QUrl roundabout = tree.url(u"sub/../sub/clip.mp4"_s);
        m_model->add({roundabout});
        QCOMPARE(m_model->jobs()[0].source(), roundabout);
        m_model->add({tree.url(u"sub/clip.mp4"_s)});
        QCOMPARE(m_model->jobs().size(), 1);
    }

    void aRemovedFileCanBeAddedAgain()
    {
        const FileTree tree;
        const QUrl clip = tree.addFile(u"clip.mp4"_s);
        m_model->add({clip, clip});
        m_model->remove(m_model->jobs()[0].id());
        m_model->add({clip});
        QCOMPARE(m_model->jobs().size(), 1);
        m_model->remove(m_model->jobs()[0].id());
        m_model->add({clip});
        QCOMPARE(m_model->jobs().size(), 1);
    }

    void anUnsupportedFileAddsNothingAndShowsNothing()
    {
        const FileTree tree;
        const QSignalSpy alerts(m_model.get(), &ConverterViewModel::alertMessageChanged);
        m_model->add({tree.addFile(u"letter.txt"_s), tree.addFile(u"video.MP4.bak"_s)});
        QVERIFY(m_model->jobs().isEmpty());
        QCOMPARE(alerts.size(), 0);
    }

    void aFileThatIsNotThereIsQueuedAllTheSame()
    {
        m_model->add({QUrl::fromLocalFile(u"/no/such/clip.mp4"_s)});
        QCOMPARE(names(), QStringList{u"clip.mp4"_s});
    }

    void addingNothingIsAChangeAllTheSame()
    {
        const QSignalSpy changes(m_model.get(), &ConverterViewModel::jobsChanged);
        m_model->add({});
        QCOMPARE(changes.size(), 1);
    }

    void removesOneJobAndKeepsTheOrder()
    {
        addClips(4);
        m_model->remove(idOf(1));
        QCOMPARE(names(), (QStringList{u"clip0.mp4"_s, u"clip2.mp4"_s, u"clip3.mp4"_s}));
        m_model->remove(QUuid::createUuid());
        QCOMPARE(m_model->jobs().size(), 3);
    }

    void moves_data()
    {
        QTest::addColumn<int>("row");
        QTest::addColumn<qint64>("offset");
        QTest::addColumn<QString>("order");
        using Limits = std::numeric_limits<qint64>;
        QTest::newRow("up from the first") << 0 << qint64(-1) << u"01234"_s;
        QTest::newRow("down from the last") << 4 << qint64(1) << u"01234"_s;
        QTest::newRow("nowhere") << 2 << qint64(0) << u"01234"_s;
        QTest::newRow("up") << 2 << qint64(-1) << u"02134"_s;
        QTest::newRow("down") << 2 << qint64(1) << u"01324"_s;
        QTest::newRow("far down") << 0 << qint64(100) << u"12340"_s;
        QTest::newRow("far up") << 4 << qint64(-100) << u"40123"_s;
        QTest::newRow("as far up as can be") << 4 << Limits::min() << u"40123"_s;
        QTest::newRow("as far down as can be") << 0 << Limits::max() << u"12340"_s;
    }
    void moves()
    {
        QFETCH(const int, row);
        QFETCH(const qint64, offset);
        QFETCH(const QString, order);
        addClips(5);
        m_model->moveJob(idOf(row), offset);
        QCOMPARE(names(), clips(order));
    }

    void movingAnUnknownJobOrTheOnlyOneDoesNothing()
    {
        addClips(1);
        m_model->moveJob(idOf(0), 1);
        addClips(3);
        const QStringList before = names();
        m_model->moveJob(QUuid::createUuid(), 1);
        QCOMPARE(names(), before);
    }

    void anOffsetBeyondAllIntegersStopsTheProgram()
    {
        addClips(2);
        const QUuid last = idOf(1);
        QVERIFY(
            stopsTheProgram([&] { m_model->moveJob(last, std::numeric_limits<qint64>::max()); }));
    }

    void movesSeveralJobs_data()
    {
        QTest::addColumn<QList<int>>("rows");
        QTest::addColumn<int>("destination");
        QTest::addColumn<QString>("order");
        QTest::newRow("one down") << QList{1} << 4 << u"02314"_s;
        QTest::newRow("one up") << QList{3} << 1 << u"03124"_s;
        QTest::newRow("apart, from both sides") << QList{0, 2, 4} << 3 << u"10243"_s;
        QTest::newRow("in any order") << QList{4, 0, 2} << 3 << u"10243"_s;
        QTest::newRow("named twice") << QList{0, 0, 1, 1} << 5 << u"23401"_s;
        QTest::newRow("rows that are not there") << QList{-1, 1, 5, 99} << 0 << u"10234"_s;
        QTest::newRow("beyond the end") << QList{0} << 99 << u"12340"_s;
        QTest::newRow("before the start") << QList{4} << -7 << u"40123"_s;
        QTest::newRow("before itself") << QList{2} << 2 << u"01234"_s;
        QTest::newRow("behind itself") << QList{2} << 3 << u"01234"_s;
        QTest::newRow("a block into itself") << QList{1, 2, 3} << 2 << u"01234"_s;
        QTest::newRow("all") << QList{0, 1, 2, 3, 4} << 1 << u"01234"_s;
        QTest::newRow("none") << QList<int>{} << 3 << u"01234"_s;
    }
    void movesSeveralJobs()
    {
        QFETCH(const QList<int>, rows);
        QFETCH(const int, destination);
        QFETCH(const QString, order);
        addClips(5);
        const QSignalSpy changes(m_model.get(), &ConverterViewModel::jobsChanged);
        m_model->moveJobs(rows, destination);
        QCOMPARE(names(), clips(order));
        QCOMPARE(changes.size(), order == u"01234" ? 0 : 1);
    }

    void movingInAnEmptyQueueDoesNothing()
    {
        m_model->moveJobs({0, 1}, 1);
        QVERIFY(m_model->jobs().isEmpty());
    }

    void clearingWithoutCompletedJobsKeepsAll()
    {
        addClips(3);
        m_model->clearCompleted();
        QCOMPARE(m_model->jobs().size(), 3);
    }

    void requeueingAWaitingJobKeepsItWaiting()
    {
        addClips(1);
        m_model->requeue(idOf(0));
        m_model->requeue(QUuid::createUuid());
        QVERIFY(m_model->jobs()[0].state == JobState::waiting());
        QCOMPARE(m_model->jobs()[0].progress, 0.0);
    }

private:
    void addClips(int count)
    {
        QList<QUrl> clips;
        for (int i = 0; i < count; ++i)
            clips << QUrl::fromLocalFile(u"/videos/clip%1.mp4"_s.arg(i));
        m_model->add(clips);
    }

    static QStringList clips(const QString &order)
    {
        QStringList names;
        for (const QChar clip : order)
            names << u"clip%1.mp4"_s.arg(clip);
        return names;
    }

    QUuid idOf(qsizetype row) const { return m_model->jobs()[row].id(); }

    QStringList names() const
    {
        QList<QUrl> sources;
        for (const ConversionJob &job : m_model->jobs())
            sources << job.source();
        return fileNames(sources);
    }

    std::shared_ptr<ConverterViewModel> m_model;
};

QUORVALE_TEST(JobQueueTest)
#include "jobqueue_test.moc"
