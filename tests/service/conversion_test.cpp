// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "support/conversion.h"
#include "support/leftovers.h"
#include "support/standintools.h"
#include "support/testclass.h"

#include <QFile>
#include <QFileInfo>
#include <QTest>

#include <optional>

#include <sys/stat.h>
#include <unistd.h>

using namespace quorvale;
using namespace quorvale::test;
using namespace Qt::StringLiterals;

namespace {

const QUrl source = QUrl::fromLocalFile(u"/in/clip.mkv"_s);

} // namespace

class ConversionTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_tools.emplace();
        m_progress = std::make_unique<ProgressLog>();
    }

    void reportsProgressAndSucceeds()
    {
        script(Script().out("frame=1\nout_time_ms=2500000\nprogress=continue\nout_time_ms="
                            "11000000\nprogress=end\n"));
        QVERIFY(convert().isSuccess());
        QCOMPARE(m_progress->values(), (QList<double>{0.25, 1.0, 1.0}));
    }

    void passesTheWholeCommandLine()
    {
        script(Script());
        QVERIFY(convert().isSuccess());
        const QList<QByteArray> expected{"-n",
                                         "-hide_banner",
                                         "-i",
                                         "/in/clip.mkv",
                                         "-c:v",
                                         "h264_videotoolbox",
                                         "-tag:v",
                                         "avc1",
                                         "-b:v",
                                         "1600000",
                                         "-maxrate",
                                         "2400000",
                                         "-bufsize",
                                         "3200000",
                                         "-pix_fmt",
                                         "yuv420p",
                                         "-c:a",
                                         "aac",
                                         "-b:a",
                                         "192k",
                                         "-map_metadata",
                                         "0",
                                         "-movflags",
                                         "+faststart",
                                         "-progress",
                                         "pipe:1",
                                         "-nostats",
                                         QFile::encodeName(destination().toLocalFile())};
        QCOMPARE(m_tools->runs(u"ffmpeg"_s), (QList<QList<QByteArray>>{expected}));
    }

    void pathsReachTheToolByteForByte()
    {
        const QByteArray name = "-50% #1? \xd7\x90 e\xcc\x81 'q' \"d\"\nback\\slash.mkv";
        const QUrl odd = QUrl::fromLocalFile(QFile::decodeName("/in/" + name));
        script(Script());
        QVERIFY(
            endOf(m_service.convert(odd, destination(), {}, m_progress->handler())).isSuccess());
        QCOMPARE(m_tools->runs(u"ffmpeg"_s).first()[3], "/in/" + name);
        QCOMPARE(m_tools->runs(u"ffprobe"_s).first().last(), "/in/" + name);
    }

    void withoutDurationThereIsExactlyOneValue()
    {
        m_tools->setScript(u"ffprobe"_s, Script().out(R"({"format": {"duration": "0"}})"));
        script(Script().out("out_time_ms=1\nout_time_ms=2500000\nprogress=end\n"));
        QVERIFY(convert().isSuccess());
        QCOMPARE(m_progress->values(), QList<double>{1.0});
    }

    void negativeTimesPassAndUnavailableOnesDoNot()
    {
        script(Script().out(
            "out_time_ms=N/A\nout_time_ms=-10000000\nout_time_ms=-9223372036854775808\n"));
        QVERIFY(convert().isSuccess());
        QCOMPARE(m_progress->values(), (QList<double>{-1.0, -922337203685.4775808}));
    }

    void lineEndingsOfAnyKindEndALine()
    {
        script(Script().out(
            "out_time_ms=1000000\rout_time_ms=2000000\r\nout_time_ms=3000000\nprogress=end"));
        QVERIFY(convert().isSuccess());
        QCOMPARE(m_progress->values(), (QList<double>{0.1, 0.2, 0.3, 1.0}));
    }

    void aLineThatArrivesInPiecesIsOneLine()
    {
        script(Script()
                   .out("out_ti")
                   .wait(30)
                   .out("me_ms=50")
                   .wait(30)
                   .out("00000\nprog")
                   .wait(30)
                   .out("ress=end\n"));
        QVERIFY(convert().isSuccess());
        QCOMPARE(m_progress->values(), (QList<double>{0.5, 1.0}));
    }

    void anEndlessProgressLineIsIgnored()
    {
        // Its beginning, which is all that is kept, would be a time.
        script(Script()
                   .out("out_time_ms=5000000.")
                   .outRepeatedly(20'000'000, "0")
                   .out("\nprogress=end\n"));
        QVERIFY(convert().isSuccess());
        QCOMPARE(m_progress->values(), QList<double>{1.0});
    }

    void withoutFFmpegNothingIsTouched()
    {
        m_tools->removeTool(u"ffmpeg"_s);
        const ConversionEnd end = convert();
        QVERIFY(end.ffmpegError == FFmpegError::Case::notFound);
        QCOMPARE(end.message,
                 u"FFmpeg was not found. Install it with Homebrew: brew install ffmpeg"_s);
        QVERIFY(m_tools->runs(u"ffprobe"_s).isEmpty());
        QVERIFY(!QFile::exists(m_tools->path(u"out"_s)));
    }

    void createsTheOutputFolder()
    {
        script(Script().writeOutput("content"));
        QVERIFY(convert().isSuccess());
        QFile output(destination().toLocalFile());
        QVERIFY(output.open(QIODevice::ReadOnly));
        QCOMPARE(output.readAll(), "content");
    }

    void aFolderThatCannotBeCreatedStopsBeforeTheLaunch()
    {
        QFile file(m_tools->path(u"out"_s));
        QVERIFY(file.open(QIODevice::WriteOnly));
        script(Script());
        const ConversionEnd end = convert();
        QVERIFY(!end.ffmpegError);
        QVERIFY2(end.message.contains(m_tools->path(u"out"_s)), qPrintable(end.message));
        QVERIFY(m_tools->runs(u"ffmpeg"_s).isEmpty());
    }

    void theSourceIsNotReplacedByItsOwnOutput()
    {
        QFile file(m_tools->path(u"clip.mp4"_s));
        QVERIFY(file.open(QIODevice::WriteOnly));
        const QUrl clip = QUrl::fromLocalFile(file.fileName());
        ConversionSettings settings;
        settings.overwrite = true;
        const ConversionEnd end =
            endOf(m_service.convert(clip, clip, settings, m_progress->handler()));
        QVERIFY(!end.ffmpegError);
        QVERIFY2(end.message.contains(u"is not replaced"_s), qPrintable(end.message));
        QVERIFY(m_tools->runs(u"ffmpeg"_s).isEmpty());
        // Without overwriting it is for ffmpeg to refuse.
        script(Script());
        settings.overwrite = false;
        QVERIFY(endOf(m_service.convert(clip, clip, settings, m_progress->handler())).isSuccess());
        QCOMPARE(m_tools->runs(u"ffmpeg"_s).first().first(), "-n");
    }

    void aBitrateThatCannotBeRightIsSaidSo()
    {
        m_tools->setScript(u"ffprobe"_s, Script().out(R"({"format": {"duration": "10"}, "streams":
            [{"codec_type": "video", "bit_rate": "9223372036854775807"}]})"));
        const ConversionEnd end = convert();
        QVERIFY(!end.ffmpegError);
        QVERIFY2(end.message.contains(u" 9223372036854775807 "_s), qPrintable(end.message));
        QVERIFY2(end.message.contains(u"“Constant quality”"_s), qPrintable(end.message));
        QVERIFY(m_tools->runs(u"ffmpeg"_s).isEmpty());
    }

    void whatIsNoFileReachesNoTool()
    {
        const QString pipe = m_tools->path(u"pipe.mkv"_s);
        QCOMPARE(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
        const ConversionEnd end = endOf(
            m_service.convert(QUrl::fromLocalFile(pipe), destination(), {}, m_progress->handler()));
        QVERIFY(!end.ffmpegError);
        QCOMPARE(end.message, u"“%1” is a named pipe, not a video file."_s.arg(pipe));
        QVERIFY(m_tools->runs(u"ffprobe"_s).isEmpty());
        QVERIFY(m_tools->runs(u"ffmpeg"_s).isEmpty());
    }

    void aToolThatCannotBeStartedIsSaidSo()
    {
        m_tools->replaceTool(u"ffmpeg"_s, "not a program");
        const ConversionEnd end = convert();
        QVERIFY(!end.ffmpegError);
        QVERIFY2(end.message.startsWith(
                     u"“%1” could not be started: "_s.arg(m_tools->path(u"ffmpeg"_s))),
                 qPrintable(end.message));
        QVERIFY2(end.message.contains(u"Exec format error"_s), qPrintable(end.message));
    }

    void aFailedLaunchLeavesTheServiceUsable()
    {
        m_tools->replaceTool(u"ffmpeg"_s, "not a program");
        QVERIFY(!convert().isSuccess());
        m_service.cancel();
        m_tools.emplace();
        script(Script());
        QVERIFY(convert().isSuccess());
    }

    void theToolHasTheProgramsStandardInput()
    {
        QFile input(m_tools->path(u"input"_s));
        QVERIFY(input.open(QIODevice::ReadWrite));
        const QString path = QFileInfo(input).canonicalFilePath();
        const int before = ::dup(STDIN_FILENO);
        ::dup2(input.handle(), STDIN_FILENO);
        m_tools->replaceTool(u"ffmpeg"_s, "#!/bin/sh\nreadlink /proc/$$/fd/0 >&2; exit 1\n");
        const ConversionEnd end = convert();
        ::dup2(before, STDIN_FILENO);
        ::close(before);
        QCOMPARE(end.message, path);
    }

    void aFloodOfWarningsNeitherStallsNorGrowsTheProgram()
    {
        script(Script()
                   .errRepeatedly(1'000'000,
                                  "[h264 @ 0x55] concealing 3600 DC, 3600 AC, 3600 MV errors\n")
                   .out("progress=end\n")
                   .err("the last words\n")
                   .exit(1));
        const qint64 before = residentMemory();
        const ConversionEnd end = convert();
        QVERIFY2(residentMemory() - before < 32 * 1024 * 1024, "the flood was kept");
        QVERIFY(end.message.endsWith(u"\nthe last words"_s));
        QCOMPARE(end.message.count(u'\n'), 7);
        QCOMPARE(m_progress->values(), QList<double>{1.0});
    }

    void floodsOnBothStreamsAtOnceDoNotStall()
    {
        Script both;
        for (int i = 0; i < 200; ++i)
            both.errRepeatedly(2000, "warning: something\n")
                .outRepeatedly(2000, "total_size=12345678\n");
        script(both.out("progress=end\n"));
        QVERIFY(convert().isSuccess());
        QCOMPARE(m_progress->values(), QList<double>{1.0});
    }

    void streamsClosedEarlyDoNotEndTheConversion()
    {
        script(Script()
                   .out("out_time_ms=5000000\n")
                   .closeOut()
                   .err("one\n")
                   .closeErr()
                   .wait(100)
                   .exit(3));
        const ConversionEnd end = convert();
        QVERIFY(end.ffmpegError == FFmpegError::Case::processFailed);
        QCOMPARE(end.message, u"one"_s);
        QCOMPARE(m_progress->values(), QList<double>{0.5});
    }

    void aGrandchildThatKeepsTheStreamsOpenDoesNotHoldTheConversion()
    {
        script(Script().out("progress=end\n").leaveGrandchild(45'000).exit(0));
        QElapsedTimer timer;
        timer.start();
        QVERIFY(convert().isSuccess());
        QVERIFY(timer.elapsed() < 30'000);
        QCOMPARE(m_progress->values(), QList<double>{1.0});
    }

    void leavesNoDescriptorsBehind()
    {
        script(Script().out("progress=end\n").err("x\n").exit(1));
        QVERIFY(!convert().isSuccess());
        const qsizetype before = Holdings::now().descriptors;
        constexpr int runs = 40;
        for (int i = 0; i < runs; ++i)
            QVERIFY(!convert().isSuccess());
        // A worker thread that the pool adds meanwhile brings a descriptor or two of its own.
        QVERIFY(Holdings::now().descriptors < before + runs / 4);
    }

    void convertsOffTheCallersThread()
    {
        script(Script().out("progress=end\n"));
        QThread *thread = nullptr;
        QVERIFY(endOf(m_service.convert(source, destination(), {}, [&](double) {
                    thread = QThread::currentThread();
                })).isSuccess());
        QVERIFY(thread);
        QVERIFY(thread != QThread::currentThread());
    }

private:
    QUrl destination() const
    {
        return QUrl::fromLocalFile(m_tools->path(u"out/clip_converted.mp4"_s));
    }

    void script(const Script &script) { m_tools->setScript(u"ffmpeg"_s, script); }

    ConversionEnd convert()
    {
        return endOf(m_service.convert(source, destination(), {}, m_progress->handler()));
    }

    std::optional<StandInTools> m_tools;
    std::unique_ptr<ProgressLog> m_progress;
    FFmpegService m_service;
};

QUORVALE_TEST(ConversionTest)
#include "conversion_test.moc"
