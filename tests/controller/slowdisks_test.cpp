// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "support/patience.h"
#include "support/queue.h"
#include "support/searches.h"
#include "support/slowdisk.h"
#include "support/testclass.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <cerrno>

#include <unistd.h>

using namespace quorvale;
using namespace quorvale::test;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

using enum JobState::Case;

namespace {

// What ails a disk.
enum class Trouble { each5ms, each20ms, asleep, gone };

// Sanitizers make everything several times as slow.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr auto longestStandstill = 100ms;
#else
constexpr auto longestStandstill = 50ms;
#endif

QStringList names(const ConverterViewModel &model)
{
    QStringList names;
    for (const ConversionJob &job : model.jobs())
        names << job.source().fileName();
    return names;
}

} // namespace

// The queue while the disk that it is to look at takes its time. This program has the stand-in of
// tests/fakes/slowdisk.cpp in itself, so what the tests ask the disk counts, too, while it is slow.
class SlowDisksTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_disk = std::make_unique<SlowDisk>();
        qputenv(SlowDisk::variable, m_disk->steering().toUtf8());
        for (int i = 0; i < folders; ++i)
            QVERIFY(QDir(m_disk->path()).mkpath(u"videos/%1"_s.arg(100 + i)));
        write(m_disk->path(u"videos/110/10.mkv"_s), {});
        write(m_disk->path(u"videos/111/9.mkv"_s), {});
        QVERIFY(QDir(m_disk->path()).mkdir(u"outputs"_s));
        m_queue = std::make_unique<Queue>();
    }

    void cleanup()
    {
        m_disk->answerAtOnce();
        m_queue.reset();
        m_disk.reset();
    }

    // Otherwise the others would find nothing.
    void whatTheMainThreadAsksAndWaitsForIsNoticed()
    {
        m_disk->takeEachTime(2 * longestStandstill);
        const auto ask = [this] {
            QTest::qWait(1);
            const bool isThere = QFile::exists(m_disk->path(u"videos"_s));
            QTest::qWait(1);
            return isThere && m_disk->longestStandstill(::getpid()) > 0ms;
        };
        QTRY_VERIFY_WITH_TIMEOUT(ask(), patience); // where it also waits for the real disk
        const QStringList asked = m_disk->questionsOfMainThread(::getpid());
        QVERIFY(asked.first().endsWith(m_disk->path(u"videos"_s)));
        const auto standstill = m_disk->longestStandstill(::getpid());
        QVERIFY2(standstill >= longestStandstill, qPrintable(QString::number(standstill.count())));
    }

    void aDroppedFolderIsSearchedBesideTheWork_data() { troubles(); }
    void aDroppedFolderIsSearchedBesideTheWork()
    {
        verifyAliveness([&] {
            m_queue->add({u"a.mkv"_s, u"b.mkv"_s, u"c.mkv"_s});
            beginTrouble();
            m_queue->model().handleDrop({videos(), QUrl::fromLocalFile(u"/in/d.mkv"_s),
                                         QUrl::fromLocalFile(u"/in/a.mkv"_s)});
            m_queue->model().moveJob(m_queue->id(2), -2);
            m_queue->model().remove(m_queue->id(1));
            QTRY_VERIFY_WITH_TIMEOUT(m_disk->questions(::getpid()) > 0, patience);
            QCOMPARE(names(m_queue->model()), (QStringList{u"c.mkv"_s, u"b.mkv"_s}));
            if (mayEnd()) {
                // In the order of the drop, without what is queued then.
                const QStringList all{u"c.mkv"_s,  u"b.mkv"_s, u"9.mkv"_s,
                                      u"10.mkv"_s, u"d.mkv"_s, u"a.mkv"_s};
                QTRY_COMPARE_WITH_TIMEOUT(names(m_queue->model()), all, patience);
                QTRY_VERIFY_WITH_TIMEOUT(!m_queue->model().searches()->isLong(), patience);
            } else {
                QTRY_VERIFY_WITH_TIMEOUT(m_queue->model().searches()->isLong(), patience);
                QCOMPARE(names(m_queue->model()), (QStringList{u"c.mkv"_s, u"b.mkv"_s}));
            }
        });
    }

    void aChosenFolderIsSearchedBesideTheWork_data() { troubles(); }
    void aChosenFolderIsSearchedBesideTheWork()
    {
        verifyAliveness([&] {
            beginTrouble();
            m_queue->panel().answers = {QList{videos()}};
            m_queue->model().chooseFolder();
            QTRY_VERIFY_WITH_TIMEOUT(m_disk->questions(::getpid()) > 0, patience);
            if (mayEnd())
                QTRY_COMPARE_WITH_TIMEOUT(names(m_queue->model()),
                                          (QStringList{u"9.mkv"_s, u"10.mkv"_s}), patience);
        });
    }

    void aStoppedSearchHandsOverWhatIsWhole()
    {
        verifyAliveness([&] {
            const QUrl whole = QUrl::fromLocalFile(m_disk->path(u"videos/111"_s));
            const QUrl silent = QUrl::fromLocalFile(m_disk->path(u"videos/110"_s));
            SearchQueue &searches = *m_queue->model().searches();
            m_disk->hang({u"videos/110"_s});
            m_queue->model().handleDrop({whole, videos(), QUrl::fromLocalFile(u"/in/a.mkv"_s)});
            m_queue->model().handleDrop({silent, QUrl::fromLocalFile(u"/in/b.mkv"_s)});
            // What comes before is queued at once.
            QTRY_COMPARE_WITH_TIMEOUT(names(m_queue->model()), QStringList{u"9.mkv"_s}, patience);
            QTRY_COMPARE_WITH_TIMEOUT(searches.foundCount(), 4, patience);
            QVERIFY(searches.isLong());
            QCOMPARE(searches.awaitedPlace(), silent.toLocalFile());
            QCOMPARE(searches.legibleAwaitedName(), u"110"_s);
            QCOMPARE(names(m_queue->model()), QStringList{u"9.mkv"_s});
            searches.stop();
            QVERIFY(!searches.isLong());
            m_queue->model().handleDrop({QUrl::fromLocalFile(u"/in/c.mkv"_s)});
            const QStringList expected{u"9.mkv"_s, u"a.mkv"_s, u"b.mkv"_s, u"c.mkv"_s};
            QTRY_COMPARE_WITH_TIMEOUT(names(m_queue->model()), expected, patience);
            m_disk->answerAtOnce();
            QTRY_VERIFY_WITH_TIMEOUT(!searches.hasThreads(), patience);
            QCOMPARE(searches.awaitedPlace(), QString());
            QTest::qWait(50); // for what should not come
            QCOMPARE(names(m_queue->model()), expected);
        });
    }

    void aFolderThatHangsIsOvertakenAndLeftOut()
    {
        verifyAliveness([&] {
            SearchQueue searches({.untilOvertaken = 50ms, .untilLeftOut = 1s});
            const FoundVideos found(searches);
            write(m_disk->path(u"videos/last.mkv"_s), {});
            m_disk->hang({u"videos/110"_s});
            searches.search({{videos()}});
            QTRY_COMPARE_WITH_TIMEOUT(searches.foundCount(), 2, patience);
            QCOMPARE(found.names, QList<QStringList>());
            QTRY_COMPARE_WITH_TIMEOUT(found.names,
                                      (QList<QStringList>{{u"9.mkv"_s, u"last.mkv"_s}}), patience);
            QTRY_COMPARE_WITH_TIMEOUT(
                searches.notice(),
                u"“%1” did not answer and was left out."_s.arg(m_disk->path(u"videos/110"_s)),
                patience);
            QCOMPARE(searches.legiblePlace() + searches.verdict(), searches.notice());
            m_disk->fail(EACCES, "opendir", {u"videos/111"_s});
            searches.search({{videos()}});
            QTRY_COMPARE_WITH_TIMEOUT(searches.verdict(),
                                      u" and 1 more could not be read and were left out."_s,
                                      patience);
        });
    }

    void aBatchWritesToIt_data() { troubles(); }
    void aBatchWritesToIt()
    {
        verifyAliveness([&] {
            const QString outputs = m_disk->path(u"outputs"_s);
            m_queue->choose(QUrl::fromLocalFile(outputs));
            m_queue->setConversions(Script().writeOutput("whole"));
            m_queue->add({u"a.mkv"_s, u"b.mkv"_s});
            beginTrouble();
            m_queue->model().start();
            if (!mayEnd()) {
                verifyCancelAtOnce();
                m_disk->answerAtOnce();
                m_queue->model().start();
            }
            QVERIFY(m_queue->awaitEnd());
            QVERIFY(isConverted(m_queue->job(0)));
            QVERIFY(isConverted(m_queue->job(1)));
        });
        QCOMPARE(QDir(m_disk->path(u"outputs"_s)).entryList(QDir::Files),
                 (QStringList{u"a_converted.mp4"_s, u"b_converted.mp4"_s}));
    }

    void aBatchReadsFromIt_data() { troubles(); }
    void aBatchReadsFromIt()
    {
        verifyAliveness([&] {
            m_queue->setConversions(Script().writeOutput("whole"));
            m_queue->model().add({videos()});
            beginTrouble();
            m_queue->model().start();
            if (mayEnd()) {
                QVERIFY(m_queue->awaitEnd());
                QCOMPARE(m_queue->model().completedCount(), 2);
            } else {
                verifyCancelAtOnce();
            }
        });
    }

    // By which the disk is asked something else: whether the output is the source.
    void aBatchOverwritesOnIt_data() { troubles(); }
    void aBatchOverwritesOnIt()
    {
        verifyAliveness([&] {
            write(m_disk->path(u"outputs/9_converted.mp4"_s), "old");
            m_queue->choose(QUrl::fromLocalFile(m_disk->path(u"outputs"_s)));
            m_queue->setConversions(Script().writeOutput("whole"));
            ConversionSettings settings;
            settings.overwrite = true;
            m_queue->model().setSettings(settings);
            m_queue->model().add({videos()});
            beginTrouble();
            m_queue->model().start();
            if (!mayEnd())
                return verifyCancelAtOnce();
            QVERIFY(m_queue->awaitEnd());
            QCOMPARE(m_queue->model().completedCount(), 2);
        });
        if (mayEnd())
            QCOMPARE(contentsOf(m_disk->path(u"outputs/9_converted.mp4"_s)), "whole");
    }

    void itsFolderIsRevealed()
    {
        verifyAliveness([&] {
            m_queue->choose(QUrl::fromLocalFile(m_disk->path(u"outputs"_s)));
            m_disk->hang();
            m_queue->model().revealDestination();
            QCOMPARE(m_queue->fileManager().revealed.size(), 1);
        });
    }

    // What is left behind uses nothing of the queue any more, which the sanitizers see.
    void theQueueEndsDuringASearch()
    {
        verifyAliveness([&] {
            m_disk->hang();
            m_queue->model().handleDrop({videos(), videos()});
            QTRY_VERIFY_WITH_TIMEOUT(m_disk->questions(::getpid()) > 0, patience);
            m_queue.reset();
        });
    }

    void theQueueEndsAfterACancelledBatch()
    {
        verifyAliveness([&] {
            m_queue->choose(QUrl::fromLocalFile(m_disk->path(u"outputs"_s)));
            m_queue->add({u"a.mkv"_s});
            m_disk->hang();
            m_queue->model().start();
            verifyCancelAtOnce();
            m_queue.reset();
        });
    }

private:
    static constexpr int folders = 24;

    QUrl videos() const { return QUrl::fromLocalFile(m_disk->path(u"videos"_s)); }

    static void troubles()
    {
        QTest::addColumn<Trouble>("trouble");
        QTest::newRow("5 ms a question") << Trouble::each5ms;
        QTest::newRow("20 ms a question") << Trouble::each20ms;
        QTest::newRow("asleep") << Trouble::asleep;
        QTest::newRow("gone") << Trouble::gone;
    }

    void beginTrouble() const
    {
        QFETCH(const Trouble, trouble);
        if (trouble == Trouble::each5ms)
            m_disk->takeEachTime(5ms);
        else if (trouble == Trouble::each20ms)
            m_disk->takeEachTime(20ms);
        else if (trouble == Trouble::asleep)
            m_disk->sleep(1s);
        else
            m_disk->hang();
    }

    static bool mayEnd()
    {
        QFETCH(const Trouble, trouble);
        return trouble != Trouble::gone;
    }

    // That the main thread neither asks the disk nor waits for who does. On a busy machine it may
    // wait for another thread that waits for a processor; but not every time.
    template <typename Work>
    void verifyAliveness(const Work &work)
    {
        for (int attempt = 1;; ++attempt) {
            work();
            if (QTest::currentTestFailed())
                return;
            QCOMPARE(m_disk->questionsOfMainThread(::getpid()), QStringList());
            const auto standstill = m_disk->longestStandstill(::getpid());
            if (standstill < longestStandstill)
                return;
            QVERIFY2(attempt < 4, qPrintable(u"%1 ms"_s.arg(standstill.count())));
            cleanup();
            init();
        }
    }

    // Of a batch that has been started.
    void verifyCancelAtOnce()
    {
        QVERIFY(m_queue->model().isConverting());
        QTRY_VERIFY_WITH_TIMEOUT(m_disk->questions(::getpid()) > 0, patience);
        m_queue->model().cancel();
        QVERIFY(m_queue->awaitEnd());
        QCOMPARE(m_queue->state(0), cancelled);
        for (qsizetype row = 1; row < m_queue->model().jobCount(); ++row)
            QCOMPARE(m_queue->state(row), waiting);
    }

    std::unique_ptr<SlowDisk> m_disk;
    std::unique_ptr<Queue> m_queue;
};

QUORVALE_TEST(SlowDisksTest)
#include "slowdisks_test.moc"
