// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "service/ffmpegservice.h"
#include "support/conversion.h"
#include "support/standintools.h"
#include "support/testclass.h"

#include <QTest>

#include <csignal>

using namespace quorvale;
using namespace quorvale::test;
using namespace Qt::StringLiterals;

// What a conversion learns about its source shows in the encoder arguments (the bitrate) and in the
// progress (the duration).

namespace {

const QUrl source = QUrl::fromLocalFile(u"/in/clip.mkv"_s);

struct Learned
{
    QByteArray bitrate; ///< the target at "Match source size"; empty when there was none
    QList<double> progress;
};

Learned convertOnce(const StandInTools &tools)
{
    ConversionSettings settings;
    settings.goal = EncodingGoal::sameSize;
    FFmpegService service;
    ProgressLog progress;
    const QUrl destination = QUrl::fromLocalFile(tools.path(u"out/clip_converted.mp4"_s));
    const ConversionEnd end =
        endOf(service.convert(source, destination, settings, progress.handler()));
    if (!end.isSuccess())
        qWarning("%s", qPrintable(end.message));
    const QList<QByteArray> words = tools.runs(u"ffmpeg"_s).last();
    const qsizetype bitrate = words.indexOf("-b:v");
    return {bitrate < 0 ? QByteArray() : words[bitrate + 1], progress.values()};
}

// A conversion that reports 5 seconds done and then its end.
Script conversion()
{
    return Script().out("out_time_ms=5000000\nprogress=end\n").exit(0);
}

Script banner()
{
    return Script()
        .err("Input #0\n  Duration: 00:00:20.00, start: 0.0\nAt least one output file\n")
        .exit(1);
}

} // namespace

class ProbeTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void asksFFprobeWithExactlyTheseArguments()
    {
        StandInTools tools;
        tools.setScript(u"ffmpeg"_s, conversion());
        convertOnce(tools);
        const QList<QList<QByteArray>> expected{
            {"-v", "error", "-show_entries", "format=duration,bit_rate:stream=codec_type,bit_rate",
             "-of", "json", "/in/clip.mkv"}};
        QCOMPARE(tools.runs(u"ffprobe"_s), expected);
        QCOMPARE(tools.runs(u"ffmpeg"_s).size(), 1);
    }

    void takesDurationAndBitrateFromFFprobe()
    {
        StandInTools tools;
        tools.setScript(u"ffmpeg"_s, conversion());
        const Learned learned = convertOnce(tools);
        QCOMPARE(learned.bitrate, "1000000");
        QCOMPARE(learned.progress, (QList<double>{0.5, 1.0}));
    }

    void ffprobesExitStatusDoesNotMatter()
    {
        StandInTools tools;
        tools.setScript(u"ffmpeg"_s, conversion());
        tools.setScript(u"ffprobe"_s,
                        Script().err("noise\n").out(R"({"format": {"duration": "5"}})").exit(1));
        QCOMPARE(convertOnce(tools).progress, (QList<double>{1.0, 1.0}));
    }

    void ffprobesDeathAfterItsAnswerDoesNotMatter()
    {
        StandInTools tools;
        tools.setScript(u"ffmpeg"_s, conversion());
        tools.setScript(u"ffprobe"_s,
                        Script().out(R"({"format": {"duration": "10"}})").die(SIGKILL));
        QCOMPARE(convertOnce(tools).progress, (QList<double>{0.5, 1.0}));
    }

    void fallsBackToTheBanner_data()
    {
        QTest::addColumn<Script>("ffprobe");
        QTest::newRow("duration not available")
            << Script().out(R"({"format": {"duration": "N/A", "bit_rate": "5000000"}})");
        QTest::newRow("what it prints on failure") << Script().out("{\n\n}\n").exit(1);
        QTest::newRow("no output") << Script();
        QTest::newRow("garbage") << Script().out("\xff\xfe\x00garbage");
        QTest::newRow("crash half-way") << Script().out("{\"format\": {\"dura").die(SIGSEGV);
        QTest::newRow("too much output")
            << Script()
                   .out("{\"format\": {\"duration\": \"5\"}, \"tags\": \"")
                   .outRepeatedly(20'000, QByteArray(1000, 'x'))
                   .out("\"}");
    }
    void fallsBackToTheBanner()
    {
        QFETCH(const Script, ffprobe);
        StandInTools tools;
        tools.setScript(u"ffprobe"_s, ffprobe);
        tools.setScript(u"ffmpeg"_s, 1, banner());
        tools.setScript(u"ffmpeg"_s, 2, conversion());
        const Learned learned = convertOnce(tools);
        QCOMPARE(learned.bitrate, "");
        QCOMPARE(learned.progress, (QList<double>{0.25, 1.0}));
        QCOMPARE(tools.runs(u"ffmpeg"_s).first(),
                 (QList<QByteArray>{"-hide_banner", "-i", "/in/clip.mkv"}));
    }

    void fallsBackWhenFFprobeIsMissing()
    {
        StandInTools tools;
        tools.removeTool(u"ffprobe"_s);
        tools.setScript(u"ffmpeg"_s, 1, banner());
        tools.setScript(u"ffmpeg"_s, 2, conversion());
        QCOMPARE(convertOnce(tools).progress, (QList<double>{0.25, 1.0}));
    }

    void fallsBackWhenFFprobeCannotBeStarted()
    {
        StandInTools tools;
        tools.replaceTool(u"ffprobe"_s, "not a program");
        tools.setScript(u"ffmpeg"_s, 1, banner());
        tools.setScript(u"ffmpeg"_s, 2, conversion());
        QCOMPARE(convertOnce(tools).progress, (QList<double>{0.25, 1.0}));
    }

    void bitratesThatCannotBeDoubledFailTheConversion_data()
    {
        QTest::addColumn<EncodingGoal>("goal");
        QTest::addColumn<QByteArray>("bitrate");
        QTest::addColumn<bool>("fails");
        const auto row = [](const char *name, EncodingGoal goal, const QByteArray &bitrate,
                            bool fails) {
            QTest::newRow(name) << goal << bitrate << fails;
        };
        // The buffer is twice the target, which is the source's or 1.6 times as much.
        row("same size", EncodingGoal::sameSize, "4611686018427387903", false);
        row("same size, beyond", EncodingGoal::sameSize, "4611686018427387904", true);
        row("same size, the largest", EncodingGoal::sameSize, "9223372036854775807", true);
        row("same size, the smallest", EncodingGoal::sameSize, "-9223372036854775808", false);
        row("balanced", EncodingGoal::balanced, "2882303761517000000", false);
        row("balanced, beyond", EncodingGoal::balanced, "2882303761518000000", true);
        row("balanced, the smallest", EncodingGoal::balanced, "-9223372036854775808", true);
        row("quality asks for no bitrate", EncodingGoal::constantQuality, "9223372036854775807",
            false);
    }
    void bitratesThatCannotBeDoubledFailTheConversion()
    {
        QFETCH(const EncodingGoal, goal);
        QFETCH(const QByteArray, bitrate);
        QFETCH(const bool, fails);
        StandInTools tools;
        tools.setScript(u"ffmpeg"_s, conversion());
        tools.setScript(u"ffprobe"_s, Script().out(R"({"format": {"duration": "10"}, "streams":
            [{"codec_type": "video", "bit_rate": ")"
                                                   + bitrate + R"("}]})"));
        FFmpegService service;
        const QUrl destination = QUrl::fromLocalFile(tools.path(u"out/clip_converted.mp4"_s));
        const ConversionEnd end =
            endOf(service.convert(source, destination, {.goal = goal}, [](double) {}));
        QCOMPARE(end.message.contains(QString::fromLatin1(bitrate)), fails);
        QCOMPARE(end.isSuccess(), !fails);
        QCOMPARE(tools.runs(u"ffmpeg"_s).size(), fails ? 0 : 1);
    }

    void convertsAllTheSameWhenNothingIsKnown()
    {
        StandInTools tools;
        tools.removeTool(u"ffprobe"_s);
        tools.setScript(u"ffmpeg"_s, 1, Script().err("/in/clip.mkv: Invalid data\n").exit(1));
        tools.setScript(u"ffmpeg"_s, 2, conversion());
        const Learned learned = convertOnce(tools);
        QCOMPARE(learned.bitrate, "");
        QCOMPARE(learned.progress, (QList<double>{1.0}));
    }
};

QUORVALE_TEST(ProbeTest)
#include "probe_test.moc"
