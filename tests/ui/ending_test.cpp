// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "support/patience.h"
#include "support/programbench.h"
#include "support/standindock.h"
#include "support/testclass.h"
#include "support/videofile.h"

#include <QFile>
#include <QTest>

#include <cmath>
#include <csignal>

#include <sys/prctl.h>
#include <sys/wait.h>

using namespace quorvale::test;
using namespace Qt::StringLiterals;

// How the program ends, and that a running ffmpeg outlives it.
class EndingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        // Orphans come to this process, which can then see how they ended.
        QCOMPARE(::prctl(PR_SET_CHILD_SUBREAPER, 1), 0);
        QVERIFY(makeVideo(source(), seconds));
    }

    void init()
    {
        m_bench = std::make_unique<ProgramBench>(m_desktop);
        QVERIFY(m_bench->start());
    }

    void cleanup() { m_bench.reset(); }

    void closingTheIdleWindowEndsTheProgramSilently()
    {
        QVERIFY(m_bench->window().close());
        QCOMPARE(m_bench->run().waitForEnd(), std::optional(0));
        QCOMPARE(m_bench->run().complaints(), QByteArray());
        QCOMPARE(m_bench->run().processes(), QList<pid_t>());
    }

    void aRunningConversionOutlivesTheWindow()
    {
        pid_t ffmpeg = 0;
        QVERIFY(startConversion(ffmpeg));

        QVERIFY(m_bench->window().close());
        QCOMPARE(m_bench->run().waitForEnd(), std::optional(0));
        QCOMPARE(m_bench->run().complaints(), QByteArray());
        verifyConversion(ffmpeg);
    }

    void theDockShowsNoProgressOfAProgramThatHasEnded()
    {
        const StandInDock dock(m_desktop.session());
        pid_t ffmpeg = 0;
        QVERIFY(startConversion(ffmpeg));
        QTRY_VERIFY_WITH_TIMEOUT(!dock.shown().isEmpty(), patience);
        QVERIFY(dock.shown().last() != StandInDock::hidden);

        QVERIFY(m_bench->window().close());
        QCOMPARE(m_bench->run().waitForEnd(), std::optional(0));
        QTRY_COMPARE_WITH_TIMEOUT(dock.shown().last(), StandInDock::hidden, patience);
    }

    void aRunningConversionOutlivesATerminationSignal()
    {
        pid_t ffmpeg = 0;
        QVERIFY(startConversion(ffmpeg));

        QCOMPARE(::kill(m_bench->run().id(), SIGTERM), 0);
        QCOMPARE(m_bench->run().waitForEnd(), std::optional(-SIGTERM));
        verifyConversion(ffmpeg);
    }

private:
    // Long enough that the conversion is seen on a fast machine, too.
    static constexpr int seconds = 60;

    QString source() const { return m_folder.filePath(u"long.mp4"_s); }

    QString output() const { return m_bench->output(u"long_converted.mp4"_s); }

    // Waits until the ffmpeg that really converts is at work, and has it rest until the program has
    // ended. Until it writes, a library of its own may say something, and end it if nobody listens.
    bool startConversion(pid_t &ffmpeg)
    {
        return m_bench->window().chooseOutputFolder(m_bench->outputFolder())
               && m_bench->drop({source()}) && m_bench->window().convert(1)
               && m_bench->waitForTool("libx264", ffmpeg)
               && QTest::qWaitFor([this] { return QFile::exists(output()); }, patience)
               && ::kill(ffmpeg, SIGSTOP) == 0;
    }

    // That ffmpeg, now an orphan, is the only process left, ends well and leaves the whole video.
    void verifyConversion(pid_t ffmpeg)
    {
        QCOMPARE(m_bench->run().processes(), QList<pid_t>{ffmpeg});
        QCOMPARE(::kill(ffmpeg, SIGCONT), 0);
        int end = 0;
        QVERIFY(
            QTest::qWaitFor([&] { return ::waitpid(ffmpeg, &end, WNOHANG) == ffmpeg; }, patience));
        QVERIFY(WIFEXITED(end));
        QCOMPARE(WEXITSTATUS(end), 0);

        const double duration = videoDuration(output()).value_or(0);
        QVERIFY2(std::abs(duration - seconds) <= 0.1, qPrintable(QString::number(duration)));
    }

    VirtualDesktop m_desktop;
    QTemporaryDir m_folder;
    std::unique_ptr<ProgramBench> m_bench;
};

QUORVALE_TEST(EndingTest)
#include "ending_test.moc"
