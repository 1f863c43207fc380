// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "support/mousedrag.h"
#include "support/processtable.h"
#include "support/programrun.h"
#include "support/videofile.h"
#include "support/virtualdisplay.h"
#include "support/windowdriver.h"

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
        QVERIFY(m_display.start());
        QVERIFY(makeLongVideo(source(), seconds));
    }

    void init()
    {
        m_run = std::make_unique<ProgramRun>();
        m_run->showOn(m_display);
        m_run->set(u"LC_ALL"_s, u"C.UTF-8"_s); // Qt remarks on locales of other encodings
        m_window = std::make_unique<WindowDriver>(m_display);
        QVERIFY(m_run->start());
        QVERIFY(m_window->find());
    }

    void cleanup()
    {
        m_run.reset();
        QVERIFY(m_display.waitForNoWindow(u"Quorvale"_s, 30'000));
    }

    void closingTheIdleWindowEndsTheProgramSilently()
    {
        QVERIFY(m_window->close());
        QVERIFY(m_run->waitForEnd(promptly));
        QVERIFY(!m_run->endedBySignal());
        QCOMPARE(m_run->status(), 0);
        QCOMPARE(m_run->complaints(), QByteArray());
        QCOMPARE(m_run->processes(), QList<pid_t>());
    }

    void aRunningConversionOutlivesTheWindow()
    {
        pid_t ffmpeg = 0;
        QTemporaryDir output;
        QVERIFY(startConversion(output.path(), ffmpeg));

        QVERIFY(m_window->close());
        QVERIFY(m_run->waitForEnd(promptly));
        QVERIFY(!m_run->endedBySignal());
        QCOMPARE(m_run->status(), 0);
        QCOMPARE(m_run->complaints(), QByteArray());
        verifyConversion(output.path(), ffmpeg);
    }

    void aRunningConversionOutlivesATerminationSignal()
    {
        pid_t ffmpeg = 0;
        QTemporaryDir output;
        QVERIFY(startConversion(output.path(), ffmpeg));

        QCOMPARE(::kill(m_run->id(), SIGTERM), 0);
        QVERIFY(m_run->waitForEnd(promptly));
        QVERIFY(m_run->endedBySignal());
        QCOMPARE(m_run->status(), SIGTERM);
        verifyConversion(output.path(), ffmpeg);
    }

private:
    // Long enough that the program ends meanwhile on a fast machine, too.
    static constexpr int seconds = 240;
    static constexpr int promptly = 3000;

    QString source() const { return m_folder.filePath(u"long.mp4"_s); }

    // Waits until the ffmpeg that really converts is at work.
    bool startConversion(const QString &output, pid_t &ffmpeg)
    {
        if (!m_window->chooseOutputFolder(output)
            || MouseDrag(m_display).dropFiles({source()}, m_window->window())
                   != MouseDrag::End::taken
            || !m_window->convert())
            return false;
        const auto isAtWork = [&] {
            for (const pid_t process : m_run->processes()) {
                if (commandLine(process).contains("libx264"))
                    ffmpeg = process;
            }
            return ffmpeg != 0;
        };
        return QTest::qWaitFor(isAtWork, 30'000);
    }

    // That ffmpeg, now an orphan, is the only process left, ends well and leaves the whole video.
    void verifyConversion(const QString &output, pid_t ffmpeg)
    {
        QCOMPARE(m_run->processes(), QList<pid_t>{ffmpeg});
        int end = 0;
        QVERIFY(
            QTest::qWaitFor([&] { return ::waitpid(ffmpeg, &end, WNOHANG) == ffmpeg; }, 200'000));
        QVERIFY(WIFEXITED(end));
        QCOMPARE(WEXITSTATUS(end), 0);

        const auto video = VideoFile::read(output + u"/long_converted.mp4"_s);
        QVERIFY(video);
        QCOMPARE(video->videoCodec, u"h264"_s);
        QVERIFY2(std::abs(video->duration - seconds) <= 0.1,
                 qPrintable(QString::number(video->duration)));
    }

    VirtualDisplay m_display;
    QTemporaryDir m_folder;
    std::unique_ptr<ProgramRun> m_run;
    std::unique_ptr<WindowDriver> m_window;
};

QTEST_GUILESS_MAIN(EndingTest)
#include "ending_test.moc"
