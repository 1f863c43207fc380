// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "support/conversion.h"
#include "support/standintools.h"
#include "support/testclass.h"

#include <QFile>
#include <QTest>

#include <csignal>
#include <optional>

using namespace quorvale;
using namespace quorvale::test;
using namespace Qt::StringLiterals;

// What the end of ffmpeg, and what it has said until then, mean for a conversion.
class EncoderRunTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_tools.emplace(); }

    void failsWithTheLastEightNonEmptyLines()
    {
        script(Script().err("1\n2\n\n3\n4\n   \n5\n\n6\n7\n8\n\n").exit(1));
        const ConversionEnd end = convert();
        QVERIFY(end.ffmpegError == FFmpegError::Case::processFailed);
        QCOMPARE(end.message, u"2\n3\n4\n   \n5\n6\n7\n8"_s);
    }

    void failsWithAGeneralTextWhenNothingWasSaid()
    {
        script(Script().err("\n\n").exit(69));
        const ConversionEnd end = convert();
        QVERIFY(end.ffmpegError == FFmpegError::Case::processFailed);
        QCOMPARE(end.message, u"FFmpeg could not convert this file."_s);
    }

    void deathByASignalIsACancellation_data()
    {
        QTest::addColumn<int>("signal");
        QTest::newRow("SIGINT") << SIGINT;
        QTest::newRow("SIGKILL") << SIGKILL;
        QTest::newRow("SIGSEGV") << SIGSEGV;
        QTest::newRow("SIGABRT") << SIGABRT;
    }
    void deathByASignalIsACancellation()
    {
        QFETCH(const int, signal);
        script(Script().err("something\n").die(signal));
        const ConversionEnd end = convert();
        QVERIFY(end.ffmpegError == FFmpegError::Case::cancelled);
        QCOMPARE(end.message, u"Conversion cancelled."_s);
    }

    void successNeedsNoProgressEnd()
    {
        script(Script().exit(0));
        QVERIFY(convert().isSuccess());
    }

    void warningsOnSuccessDoNotMatter()
    {
        script(Script().err("Unknown encoder 'h264_videotoolbox'\n").exit(0));
        QVERIFY(convert().isSuccess());
        QCOMPARE(m_tools->runs(u"ffmpeg"_s).size(), 1);
    }

    void anOutputThatIsNotWholeIsAFailureWhateverTheStatus()
    {
        const QByteArray output = QFile::encodeName(destination().toLocalFile());
        const QByteArray error =
            "Error writing trailer of " + output + ": No space left on device\n";
        script(Script()
                   .err(error)
                   .errRepeatedly(10, "[libx264 @ 0x55] kb/s:123\n")
                   .out("progress=end\n")
                   .exit(0));
        const ConversionEnd end = convert();
        QVERIFY(end.ffmpegError == FFmpegError::Case::processFailed);
        QCOMPARE(end.message, QString::fromUtf8(error.trimmed()));
    }

    void aSourceThatCannotBeReadIsAFailureWhateverTheStatus()
    {
        script(Script()
                   .err("Stream mapping:\n/in/clip.mkv: Input/output error\n[mp4 @ 0x55] Starting "
                        "second pass: moving the moov atom to the beginning of the file\n")
                   .errRepeatedly(10, "[libx264 @ 0x55] kb/s:123\n")
                   .out("out_time_ms=2500000\nprogress=end\n")
                   .exit(0));
        const ConversionEnd end = convert();
        QVERIFY(end.ffmpegError == FFmpegError::Case::processFailed);
        QCOMPARE(end.message, u"/in/clip.mkv: Input/output error"_s);
    }

    void anEmptyOutputIsAFailureWhateverTheStatus()
    {
        const QByteArray sum = "video:0kB audio:0kB subtitle:0kB other streams:0kB global "
                               "headers:0kB muxing overhead: unknown";
        script(Script().err("It is empty.\n" + sum + '\n').out("progress=end\n").exit(0));
        const ConversionEnd end = convert();
        QVERIFY(end.ffmpegError == FFmpegError::Case::processFailed);
        QCOMPARE(end.message, u"Nothing was converted: ffmpeg found neither pictures nor sound in "
                              "the video.\nIt is empty.\n"_s
                                  + QString::fromUtf8(sum));
    }

    void aSourceThatEndsEarlyIsSaidSo_data()
    {
        QTest::addColumn<QByteArray>("words");
        QTest::addColumn<QByteArray>("progress");
        QTest::addColumn<std::optional<EarlyEnd>>("earlyEnd");
        const QByteArray words = "[matroska,webm @ 0x55d0] File ended prematurely\n";
        const QByteArray times = "out_time_ms=1000000\nout_time_ms=9400000\nprogress=end\n";
        const auto none = std::optional<EarlyEnd>();
        QTest::newRow("both") << words << times << std::optional(EarlyEnd{9.4, 10.0});
        QTest::newRow("ffmpeg's words only")
            << words << QByteArray("out_time_ms=9500000\n") << none;
        QTest::newRow("a short output only") << QByteArray() << times << none;
    }
    void aSourceThatEndsEarlyIsSaidSo()
    {
        QFETCH(const QByteArray, words);
        QFETCH(const QByteArray, progress);
        script(Script().err(words).out(progress));
        const ConversionEnd end = convert();
        QVERIFY(end.isSuccess());
        QTEST(end.earlyEnd, "earlyEnd");
    }

    // Old versions say so of what a disk does not let them read, and nothing of the disk.
    void whatEndsEarlyAndCannotBeReadIsAFailure()
    {
        script(Script().err("[mov,mp4 @ 0x55d0] stream 0, offset 0x38cd: partial file\n"));
        const ConversionEnd end = convert(u"/proc/self/mem"_s); // where nothing is at the beginning
        QCOMPARE(end.message, u"“/proc/self/mem” could not be read to its end: Input/output "
                              "error."_s);
    }

    void whatHasNoKnownLengthDoesNotEndEarly()
    {
        m_tools->setScript(u"ffprobe"_s, Script());
        script(Script().err("[flv @ 0x55d0] File ended prematurely\n").out("out_time_ms=-1\n"));
        const ConversionEnd end = convert();
        QVERIFY(end.isSuccess());
        QVERIFY(!end.earlyEnd);
    }

    void aFailingStatusIsExplainedByTheLastLinesAsEver()
    {
        script(Script()
                   .err("[out#0/mp4 @ 0x55] Error writing trailer: No space left on device\n"
                        "Conversion failed!\n")
                   .exit(228));
        QVERIFY(convert().message.endsWith(u"\nConversion failed!"_s));
    }

private:
    QUrl destination() const
    {
        return QUrl::fromLocalFile(m_tools->path(u"out/clip_converted.mp4"_s));
    }

    void script(const Script &script) { m_tools->setScript(u"ffmpeg"_s, script); }

    ConversionEnd convert(const QString &source = u"/in/clip.mkv"_s)
    {
        return endOf(
            m_service.convert(QUrl::fromLocalFile(source), destination(), {}, [](double) {}));
    }

    std::optional<StandInTools> m_tools;
    FFmpegService m_service;
};

QUORVALE_TEST(EncoderRunTest)
#include "encoderrun_test.moc"
