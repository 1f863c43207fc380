// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "service/childprocess.h"
#include "support/conversion.h"
#include "support/patience.h"
#include "support/standintools.h"
#include "support/testclass.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTest>

#include <csignal>
#include <optional>
#include <thread>

using namespace quorvale;
using namespace quorvale::test;
using namespace Qt::StringLiterals;

namespace {

const QUrl source = QUrl::fromLocalFile(u"/in/clip.mkv"_s);
constexpr auto missingEncoder = "Unknown encoder 'h264_videotoolbox'\n";

} // namespace

class CancellationTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_tools.emplace(); }

    void withoutAConversionDoesNothing()
    {
        m_service.cancel();
        m_tools->setScript(u"ffmpeg"_s, Script().out("progress=end\n"));
        QVERIFY(endOf(convert()).isSuccess());
        m_service.cancel();
    }

    void interruptsTheRunningTool()
    {
        m_tools->setScript(u"ffmpeg"_s, m_tools->untilReleased());
        const auto conversion = convert();
        QVERIFY(m_tools->awaitWaiting());
        m_service.cancel();
        const ConversionEnd end = endOf(conversion);
        QVERIFY(end.ffmpegError == FFmpegError::Case::cancelled);
        QCOMPARE(end.message, u"Conversion cancelled."_s);
    }

    void sendsExactlyOneInterruptPerCall()
    {
        m_tools->setScript(u"ffmpeg"_s, m_tools->untilReleased(Script().countInterrupts()).exit(0));
        const auto conversion = convert();
        QVERIFY(m_tools->awaitWaiting());
        // Often, because two signals that came at once could be taken for one.
        constexpr int calls = 100;
        for (int i = 0; i < calls; ++i) {
            m_service.cancel();
            QVERIFY(QTest::qWaitFor([&] { return m_tools->countedInterrupts(u"ffmpeg"_s) > i; },
                                    patience));
        }
        m_tools->release();
        QVERIFY(endOf(conversion).isSuccess());
        QCOMPARE(m_tools->countedInterrupts(u"ffmpeg"_s), calls);
    }

    void aToolThatCatchesTheInterruptDecidesItsEnd()
    {
        m_tools->setScript(
            u"ffmpeg"_s,
            m_tools->untilReleased(
                Script().err("Exiting normally, received signal 2.\n").catchInterrupt(255)));
        const auto conversion = convert();
        QVERIFY(m_tools->awaitWaiting());
        m_service.cancel();
        const ConversionEnd end = endOf(conversion);
        QVERIFY(end.ffmpegError == FFmpegError::Case::processFailed);
        QCOMPARE(end.message, u"Exiting normally, received signal 2."_s);
    }

    void aToolThatCatchesTheInterruptAndSucceedsHasSucceeded()
    {
        m_tools->setScript(u"ffmpeg"_s, m_tools->untilReleased(Script().catchInterrupt(0)));
        const auto conversion = convert();
        QVERIFY(m_tools->awaitWaiting());
        m_service.cancel();
        QVERIFY(endOf(conversion).isSuccess());
    }

    void aToolThatIgnoresTheInterruptRunsToItsEnd()
    {
        m_tools->setScript(
            u"ffmpeg"_s, m_tools->untilReleased(Script().ignoreInterrupt()).out("progress=end\n"));
        const auto conversion = convert();
        QVERIFY(m_tools->awaitWaiting());
        m_service.cancel();
        m_tools->release();
        QVERIFY(endOf(conversion).isSuccess());
    }

    void doesNotReachTheProbe()
    {
        m_tools->setScript(u"ffprobe"_s,
                           m_tools->untilReleased().out(R"({"format": {"duration": "10"}})"));
        m_tools->setScript(u"ffmpeg"_s, Script().out("progress=end\n"));
        const auto conversion = convert();
        QVERIFY(m_tools->awaitWaiting());
        m_service.cancel();
        m_tools->release();
        QVERIFY(endOf(conversion).isSuccess());
        // Without an answer from ffprobe, ffmpeg would have been asked as well.
        QCOMPARE(m_tools->runs(u"ffmpeg"_s).size(), 1);
    }

    void aCancelDuringTheProbeIsRememberedBeforeTheSoftwareEncoder()
    {
        m_tools->setScript(u"ffprobe"_s,
                           m_tools->untilReleased().out(R"({"format": {"duration": "10"}})"));
        m_tools->setScript(u"ffmpeg"_s, 1, Script().err(missingEncoder).exit(1));
        m_tools->setScript(u"ffmpeg"_s, 2, Script().exit(0));
        const auto conversion = convert();
        QVERIFY(m_tools->awaitWaiting());
        m_service.cancel();
        m_tools->release();
        QVERIFY(endOf(conversion).ffmpegError == FFmpegError::Case::cancelled);
        const QList<QList<QByteArray>> runs = m_tools->runs(u"ffmpeg"_s);
        QCOMPARE(runs.size(), 1);
        QVERIFY(runs[0].contains("h264_videotoolbox"));
    }

    void rightAfterTheCallIsRememberedBeforeTheSoftwareEncoder()
    {
        m_tools->setScript(u"ffmpeg"_s, 1, Script().err(missingEncoder).exit(1));
        m_tools->setScript(u"ffmpeg"_s, 2, Script().exit(0));
        const auto conversion = convert();
        m_service.cancel();
        QVERIFY(endOf(conversion).ffmpegError == FFmpegError::Case::cancelled);
        QVERIFY(m_tools->runs(u"ffmpeg"_s).size() <= 1);
    }

    void beforeTheSoftwareEncoderStartsItEndsTheConversion()
    {
        // The first run survives the interrupt and then turns out to lack the encoder, so the
        // cancel lies between the two runs whenever it came.
        m_tools->setScript(
            u"ffmpeg"_s, 1,
            m_tools->untilReleased(Script().ignoreInterrupt()).err(missingEncoder).exit(1));
        m_tools->setScript(u"ffmpeg"_s, 2, Script().exit(0));
        const auto conversion = convert();
        QVERIFY(m_tools->awaitWaiting());
        m_service.cancel();
        m_tools->release();
        QVERIFY(endOf(conversion).ffmpegError == FFmpegError::Case::cancelled);
        QCOMPARE(m_tools->runs(u"ffmpeg"_s).size(), 1);
    }

    void reachesTheSoftwareEncoderToo()
    {
        m_tools->setScript(u"ffmpeg"_s, 1, Script().err(missingEncoder).exit(1));
        m_tools->setScript(u"ffmpeg"_s, 2, m_tools->untilReleased());
        const auto conversion = convert();
        QVERIFY(m_tools->awaitWaiting());
        m_service.cancel();
        QVERIFY(endOf(conversion).ffmpegError == FFmpegError::Case::cancelled);
    }

    void isForgottenByTheNextConversion()
    {
        m_tools->setScript(u"ffmpeg"_s, 1, m_tools->untilReleased());
        m_tools->setScript(u"ffmpeg"_s, 2, Script().err(missingEncoder).exit(1));
        m_tools->setScript(u"ffmpeg"_s, 3, Script().exit(0));
        const auto cancelled = convert();
        QVERIFY(m_tools->awaitWaiting());
        m_service.cancel();
        QVERIFY(!endOf(cancelled).isSuccess());
        QVERIFY(endOf(convert()).isSuccess());
    }

    void atAnyInstantNeitherHangsNorThrows()
    {
        m_tools->setScript(u"ffmpeg"_s, Script().out("progress=end\n").wait(5).exit(0));
        for (int delay = 0; delay < 60; ++delay) {
            const auto conversion = convert();
            std::this_thread::sleep_for(std::chrono::microseconds(delay * 400));
            m_service.cancel();
            const ConversionEnd end = endOf(conversion);
            QVERIFY2(end.isSuccess() || end.ffmpegError == FFmpegError::Case::cancelled,
                     qPrintable(end.message));
        }
    }

    void fromSeveralThreadsAtOnceNeitherHangsNorThrows()
    {
        m_tools->setScript(u"ffmpeg"_s, Script().countInterrupts().wait(50).exit(0));
        for (int round = 0; round < 5; ++round) {
            const auto conversion = convert();
            std::vector<std::thread> threads;
            for (int i = 0; i < 4; ++i) {
                threads.emplace_back([this] {
                    for (int call = 0; call < 50; ++call)
                        m_service.cancel();
                });
            }
            for (std::thread &thread : threads)
                thread.join();
            const ConversionEnd end = endOf(conversion);
            QVERIFY2(end.isSuccess() || end.ffmpegError == FFmpegError::Case::cancelled,
                     qPrintable(end.message));
        }
    }

    void beforeTheLaunchIsDeliveredRightAfterIt()
    {
        m_tools->setScript(u"ffmpeg"_s, m_tools->untilReleased());
        ChildProcess process(m_tools->path(u"ffmpeg"_s).toUtf8(), {});
        process.interrupt();
        process.interrupt();
        QVERIFY(process.run({}, {}).byUncaughtSignal);
    }

    void reachesAToolOfAProgramThatIgnoresInterrupts()
    {
        m_tools->setScript(u"ffmpeg"_s, m_tools->untilReleased());
        const auto handler = std::signal(SIGINT, SIG_IGN);
        const auto conversion = convert();
        QVERIFY(m_tools->awaitWaiting());
        m_service.cancel();
        const bool hasEnded = QTest::qWaitFor([&] { return conversion.isFinished(); }, patience);
        m_tools->release();
        const ConversionEnd end = endOf(conversion);
        std::signal(SIGINT, handler);
        QVERIFY(hasEnded);
        QVERIFY(end.ffmpegError == FFmpegError::Case::cancelled);
    }

    void afterTheEndNeitherHangsNorThrows()
    {
        m_tools->setScript(u"ffmpeg"_s, Script().exit(7));
        ChildProcess process(m_tools->path(u"ffmpeg"_s).toUtf8(), {});
        const ChildProcess::End end = process.run({}, {});
        process.interrupt();
        QVERIFY(!end.byUncaughtSignal);
        QCOMPARE(end.exitStatus, 7);
    }

private:
    QFuture<ConvertedFile> convert()
    {
        const QUrl destination = QUrl::fromLocalFile(m_tools->path(u"out/clip_converted.mp4"_s));
        return m_service.convert(source, destination, {}, [](double) {});
    }

    std::optional<StandInTools> m_tools;
    FFmpegService m_service;
};

QUORVALE_TEST(CancellationTest)
#include "cancellation_test.moc"
