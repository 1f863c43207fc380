// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "support/accessibleevents.h"
#include "support/patience.h"
#include "support/programbench.h"
#include "support/slowdisk.h"
#include "support/standinportal.h"
#include "support/testclass.h"
#include "support/videofile.h"

#include <QDir>
#include <QElapsedTimer>
#include <QTest>
#include <QUrl>

#include <csignal>

using namespace quorvale::test;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

using Role = AccessibleItem::Role;

namespace {

// What ails a disk.
enum class Trouble { each5ms, each20ms, asleep, gone };

} // namespace

// Works the program while the disk that it is to look at takes its time.
class SlowDisksTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        for (const QString &name : {u"a.mp4"_s, u"b.mp4"_s, u"c.mp4"_s})
            QVERIFY(makeVideo(m_fast.filePath(name), 1));
    }

    void init()
    {
        m_disk = std::make_unique<SlowDisk>();
        for (const QString &folder : {u"videos"_s, u"outputs"_s})
            QVERIFY(QDir(m_disk->path()).mkdir(folder));
        // Two videos, in the last folders but one.
        for (int i = 0; i < folders; ++i)
            QVERIFY(QDir(m_disk->path(u"videos"_s)).mkdir(QString::number(100 + i)));
        QVERIFY(QFile::copy(m_fast.filePath(u"a.mp4"_s),
                            m_disk->path(u"videos/%1/y.mp4"_s.arg(98 + folders))));
        QVERIFY(QFile::copy(m_fast.filePath(u"a.mp4"_s),
                            m_disk->path(u"videos/%1/z.mp4"_s.arg(97 + folders))));

        m_bench = std::make_unique<ProgramBench>(m_desktop);
        m_bench->run().put(*m_disk);
        QVERIFY(m_bench->start());
        m_program = m_bench->run().id();
    }

    void cleanup()
    {
        m_bench.reset();
        m_disk.reset();
    }

    void aDroppedFolderIsSearchedBesideTheWork_data() { troubles(); }
    void aDroppedFolderIsSearchedBesideTheWork()
    {
        verifyAliveness([&] {
            QVERIFY(m_bench->drop({m_fast.path()}));
            QVERIFY(window().waitForRows({u"a.mp4"_s, u"b.mp4"_s, u"c.mp4"_s}));
            beginTrouble();
            QVERIFY(m_bench->drop({m_disk->path(u"videos"_s)}));
            QTRY_VERIFY_WITH_TIMEOUT(m_disk->questions(m_program) > 0, patience);
            // The user goes on.
            QVERIFY(window().actInRow(u"c.mp4"_s, u"Move up"_s));
            QVERIFY(waitForOtherRows({u"a.mp4"_s, u"c.mp4"_s, u"b.mp4"_s}));
            QVERIFY(window().actInRow(u"a.mp4"_s, u"Remove from queue"_s));
            QVERIFY(waitForOtherRows({u"c.mp4"_s, u"b.mp4"_s}));
            QVERIFY(window().actInRow(u"c.mp4"_s, u"Move down"_s));
            QVERIFY(waitForOtherRows({u"b.mp4"_s, u"c.mp4"_s}));
            if (mayEnd()) {
                QVERIFY(window().waitForRows({u"b.mp4"_s, u"c.mp4"_s, u"y.mp4"_s, u"z.mp4"_s}));
                QVERIFY(window().waitForNo(searching));
            } else {
                QVERIFY(window().waitFor(searching));
                QVERIFY(window().waitForRows({u"b.mp4"_s, u"c.mp4"_s}));
            }
        });
    }

    void aStoppedSearchAddsWhatIsWholeAndNothingLater()
    {
        verifyAliveness([&] {
            const QStringList rows{u"a.mp4"_s, u"b.mp4"_s, u"c.mp4"_s};
            const AccessibleEvents events(m_desktop.accessibility());
            m_disk->hang();
            QVERIFY(m_bench->drop({m_disk->path(u"videos"_s), m_fast.path()}));
            QVERIFY(window().waitFor(AccessibleItem::named(
                Role::label, u"Searching for videos… 3 found, waiting for “%1”"_s.arg(
                                 m_disk->path(u"videos"_s)))));
            QCOMPARE(window().rowNames(), QStringList());
            QTRY_COMPARE_WITH_TIMEOUT(events.announcements(),
                                      QStringList(u"Searching for videos…"_s), patience);
            QVERIFY(window().act(u"Press"_s, Role::button, stop));
            QVERIFY(window().waitForNo(searching));
            QVERIFY(window().waitForRows(rows));
            m_disk->answerAtOnce(); // what hung goes on, and has nobody to tell
            QTest::qWait(300);
            QCOMPARE(window().rowNames(), rows);
        });
    }

    void aChosenFolderIsSearchedBesideTheWork_data() { troubles(); }
    void aChosenFolderIsSearchedBesideTheWork()
    {
        verifyAliveness([&] {
            StandInPortal portal(m_desktop.session());
            const QUrl folder = QUrl::fromLocalFile(m_disk->path(u"videos"_s));
            beginTrouble();
            QVERIFY(window().act(u"Press"_s, Role::button, u"Folder"_s));
            QTRY_COMPARE_WITH_TIMEOUT(portal.calls(u"OpenFile"_s).size(), 1, patience);
            portal.perform({StandInPortal::respond(StandInPortal::success,
                                                   {folder.toString(QUrl::FullyEncoded)})});
            QTRY_VERIFY_WITH_TIMEOUT(m_disk->questions(m_program) > 0, patience);
            QVERIFY(window().act(u"Press"_s, Role::radioButton, u"H.265 (HEVC)"_s));
            if (mayEnd())
                QVERIFY(window().waitForRows({u"y.mp4"_s, u"z.mp4"_s}));
            else
                QVERIFY(window().waitFor(searching));
        });
    }

    void aBatchWritesToIt_data() { troubles(); }
    void aBatchWritesToIt()
    {
        verifyAliveness([&] {
            const QString outputs = m_disk->path(u"outputs"_s);
            QVERIFY(window().chooseOutputFolder(outputs));
            QVERIFY(m_bench->queue({m_fast.filePath(u"a.mp4"_s), m_fast.filePath(u"b.mp4"_s)}));
            beginTrouble();
            QVERIFY(window().convert(2));
            if (!mayEnd()) {
                verifyCancelAtOnce(u"a.mp4"_s, u"b.mp4"_s);
                // What was cancelled stays so when the disk comes back, and a new batch converts.
                m_disk->answerAtOnce();
                QVERIFY(window().act(u"Press"_s, Role::button, u"Convert 2 Videos"_s));
            }
            for (const QString &row : {u"a.mp4"_s, u"b.mp4"_s})
                QVERIFY(window().waitForDescription(row, u", Complete"_s));
            QCOMPARE(QDir(outputs).entryList(QDir::Files),
                     (QStringList{u"a_converted.mp4"_s, u"b_converted.mp4"_s}));
        });
    }

    void aBatchReadsFromIt_data() { troubles(); }
    void aBatchReadsFromIt()
    {
        verifyAliveness([&] {
            QVERIFY(window().chooseOutputFolder(m_bench->outputFolder()));
            QVERIFY(m_bench->drop({m_disk->path(u"videos"_s)}));
            QVERIFY(window().waitForRows({u"y.mp4"_s, u"z.mp4"_s}));
            beginTrouble();
            QVERIFY(window().convert(2));
            if (mayEnd()) {
                QVERIFY(m_bench->waitForOutputs({u"y_converted.mp4"_s, u"z_converted.mp4"_s}));
                for (const QString &row : {u"y.mp4"_s, u"z.mp4"_s})
                    QVERIFY(window().waitForDescription(row, u", Complete"_s));
            } else {
                verifyCancelAtOnce(u"y.mp4"_s, u"z.mp4"_s);
            }
        });
    }

    void itsFolderIsRevealed()
    {
        verifyAliveness([&] {
            const StandInService files(m_desktop.session(), u"org.freedesktop.FileManager1"_s,
                                       {{u"ShowItems"_s, {StandInService::reply()}}});
            QVERIFY(window().chooseOutputFolder(m_disk->path(u"outputs"_s)));
            m_disk->hang();
            QVERIFY(window().act(u"Press"_s, Role::button, u"Show output folder"_s));
            QTRY_COMPARE_WITH_TIMEOUT(files.calls(u"ShowItems"_s).size(), 1, patience);
            QVERIFY(window().act(u"Press"_s, Role::radioButton, u"H.265 (HEVC)"_s));
        });
    }

    void theProgramEndsDuringASearch_data() { endings(); }
    void theProgramEndsDuringASearch()
    {
        verifyAliveness([&] {
            m_disk->hang();
            QVERIFY(m_bench->drop({m_disk->path(u"videos"_s)}));
            QTRY_VERIFY_WITH_TIMEOUT(m_disk->questions(m_program) > 0, patience);
            verifyEnd();
        });
    }

    void theProgramEndsDuringABatch_data() { endings(); }
    void theProgramEndsDuringABatch()
    {
        verifyAliveness([&] {
            QVERIFY(window().chooseOutputFolder(m_disk->path(u"outputs"_s)));
            QVERIFY(m_bench->drop({m_fast.filePath(u"a.mp4"_s)}));
            m_disk->hang();
            QVERIFY(window().convert(1));
            QTRY_VERIFY_WITH_TIMEOUT(m_disk->questions(m_program) > 0, patience);
            verifyEnd();
        });
    }

    // The threads that hang are left behind at the end, too.
    void theProgramEndsAfterWhatWasStopped_data() { endings(); }
    void theProgramEndsAfterWhatWasStopped()
    {
        verifyAliveness([&] {
            QVERIFY(window().chooseOutputFolder(m_disk->path(u"outputs"_s)));
            QVERIFY(m_bench->drop({m_fast.filePath(u"a.mp4"_s)}));
            m_disk->hang();
            QVERIFY(m_bench->drop({m_disk->path(u"videos"_s)}));
            QVERIFY(window().waitFor(searching));
            QVERIFY(window().act(u"Press"_s, Role::button, stop));
            QVERIFY(window().waitForNo(searching));
            const qsizetype questions = m_disk->questions(m_program);
            QVERIFY(window().convert(1));
            QTRY_VERIFY_WITH_TIMEOUT(m_disk->questions(m_program) > questions, patience);
            QVERIFY(window().act(u"Press"_s, Role::button, u"Cancel"_s));
            QVERIFY(window().waitForDescription(u"a.mp4"_s, u", Cancelled"_s));
            verifyEnd();
        });
    }

private:
    static constexpr int folders = 24;
    const QString stop = u"Stop searching"_s;
    const AccessibleItem::Condition searching = [](const AccessibleItem &item) {
        return item.name().startsWith(u"Searching for videos…"_s);
    };

    const WindowDriver &window() const { return m_bench->window(); }

    // Waits for the rows of videos that are not on the slow disk; the others come at any time.
    bool waitForOtherRows(const QStringList &expected) const
    {
        const auto areThere = [&] {
            QStringList rows = window().rowNames();
            rows.removeIf(
                [](const QString &row) { return row == "y.mp4"_L1 || row == "z.mp4"_L1; });
            return rows == expected;
        };
        return QTest::qWaitFor(areThere, patience);
    }

    static void troubles()
    {
        QTest::addColumn<Trouble>("trouble");
        QTest::newRow("5 ms a question") << Trouble::each5ms;
        QTest::newRow("20 ms a question") << Trouble::each20ms;
        QTest::newRow("asleep for 30 s") << Trouble::asleep;
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
            m_disk->sleep(30s);
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
        constexpr auto limit = 50ms;
        for (int attempt = 1;; ++attempt) {
            work();
            if (QTest::currentTestFailed())
                return;
            QCOMPARE(m_disk->questionsOfMainThread(m_program), QStringList());
            const auto standstill = m_disk->longestStandstill(m_program);
            if (standstill < limit)
                return;
            QVERIFY2(attempt < 4, qPrintable(u"%1 ms"_s.arg(standstill.count())));
            cleanup();
            init();
        }
    }

    // Of a batch that has been started with these videos.
    void verifyCancelAtOnce(const QString &first, const QString &second) const
    {
        QTRY_VERIFY_WITH_TIMEOUT(m_disk->questions(m_program) > 0, patience);
        QVERIFY(window().waitForDescription(first, u", Converting"_s));
        QVERIFY(window().act(u"Press"_s, Role::button, u"Cancel"_s));
        QVERIFY(window().waitForDescription(first, u", Cancelled"_s));
        QVERIFY(window().waitForDescription(second, u", Ready"_s));
        QVERIFY(window().waitFor(AccessibleItem::named(Role::button, u"Convert 2 Videos"_s)));
    }

    static void endings()
    {
        QTest::addColumn<int>("signal");
        QTest::newRow("closed") << 0;
        QTest::newRow("quit") << -1;
        QTest::newRow("terminated") << SIGTERM;
    }

    void verifyEnd() const
    {
        QFETCH(const int, signal);
        QElapsedTimer clock;
        clock.start();
        if (signal > 0)
            QCOMPARE(::kill(m_program, signal), 0);
        else if (signal == 0)
            QVERIFY(window().close());
        else
            QVERIFY(window().activate() && window().press(u"ctrl+q"_s));
        QCOMPARE(m_bench->run().waitForEnd(), std::optional(signal > 0 ? -signal : 0));
        QVERIFY2(clock.elapsed() < 5000, qPrintable(QString::number(clock.elapsed())));
        QCOMPARE(m_bench->run().complaints(), QByteArray());
        QCOMPARE(m_bench->run().processes(), QList<pid_t>());
    }

    VirtualDesktop m_desktop;
    QTemporaryDir m_fast;
    std::unique_ptr<SlowDisk> m_disk;
    std::unique_ptr<ProgramBench> m_bench;
    pid_t m_program = 0;
};

QUORVALE_TEST(SlowDisksTest)
#include "slowdisks_test.moc"
