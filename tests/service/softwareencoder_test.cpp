// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "support/conversion.h"
#include "support/standintools.h"
#include "support/testclass.h"

#include <QTest>

#include <csignal>
#include <optional>

using namespace quorvale;
using namespace quorvale::test;
using namespace Qt::StringLiterals;

// An ffmpeg without the media engine's encoders is asked once more, for the software encoder.

namespace {

Script lacking(const QByteArray &encoder)
{
    return Script()
        .err("[vost#0:0 @ 0x5581] Unknown encoder '" + encoder + "'\nError opening output file\n")
        .exit(1);
}

} // namespace

class SoftwareEncoderTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_tools.emplace();
        m_settings = {};
    }

    void takesOverForEveryCodec_data()
    {
        QTest::addColumn<OutputCodec>("codec");
        QTest::addColumn<QByteArray>("hardware");
        QTest::addColumn<QByteArray>("software");
        QTest::newRow("H.264") << OutputCodec::h264 << QByteArray("h264_videotoolbox")
                               << QByteArray("libx264");
        QTest::newRow("HEVC") << OutputCodec::hevc << QByteArray("hevc_videotoolbox")
                              << QByteArray("libx265");
        QTest::newRow("ProRes 422") << OutputCodec::proRes422 << QByteArray("prores_videotoolbox")
                                    << QByteArray("prores_ks");
        QTest::newRow("ProRes 4444") << OutputCodec::proRes4444 << QByteArray("prores_videotoolbox")
                                     << QByteArray("prores_ks");
    }
    void takesOverForEveryCodec()
    {
        QFETCH(const OutputCodec, codec);
        QFETCH(const QByteArray, hardware);
        QFETCH(const QByteArray, software);
        m_settings.codec = codec;
        m_tools->setScript(u"ffmpeg"_s, 1, lacking(hardware));
        m_tools->setScript(u"ffmpeg"_s, 2, Script().out("out_time_ms=5000000\nprogress=end\n"));
        ProgressLog progress;
        QVERIFY(convert(progress).isSuccess());
        QCOMPARE(progress.values(), (QList<double>{0.5, 1.0}));
        const auto runs = m_tools->runs(u"ffmpeg"_s);
        QCOMPARE(runs.size(), 2);
        QVERIFY(runs[0].contains(hardware));
        QVERIFY(runs[1].contains(software));
        QCOMPARE(m_tools->runs(u"ffprobe"_s).size(), 1);
    }

    void everythingButTheEncoderStaysTheSame()
    {
        m_settings.audio = AudioMode::copy;
        m_settings.overwrite = true;
        m_tools->setScript(u"ffmpeg"_s, 1, lacking("h264_videotoolbox"));
        m_tools->setScript(u"ffmpeg"_s, 2, Script());
        QVERIFY(convert().isSuccess());
        const auto runs = m_tools->runs(u"ffmpeg"_s);
        QList<QByteArray> expected = runs[0];
        expected[expected.indexOf("h264_videotoolbox")] = "libx264";
        expected.insert(expected.indexOf("-tag:v"), {"-preset"});
        expected.insert(expected.indexOf("-tag:v"), {"medium"});
        QCOMPARE(runs[1], expected);
    }

    void failsWithTheSecondRunsText()
    {
        m_tools->setScript(u"ffmpeg"_s, 1, lacking("h264_videotoolbox"));
        m_tools->setScript(u"ffmpeg"_s, 2, Script().err("Unknown encoder 'libx264'\n").exit(1));
        const ConversionEnd end = convert();
        QVERIFY(end.ffmpegError == FFmpegError::Case::processFailed);
        QCOMPARE(end.message, u"Unknown encoder 'libx264'"_s);
        QCOMPARE(m_tools->runs(u"ffmpeg"_s).size(), 2);
    }

    void isTriedOnlyOnce()
    {
        m_tools->setScript(u"ffmpeg"_s, lacking("h264_videotoolbox"));
        QVERIFY(!convert().isSuccess());
        QCOMPARE(m_tools->runs(u"ffmpeg"_s).size(), 2);
    }

    void isNotTriedForAnyOtherEnd_data()
    {
        QTest::addColumn<bool>("hardware");
        QTest::addColumn<Script>("script");
        QTest::newRow("hardware was not asked for") << false << lacking("libx264");
        QTest::newRow("another encoder is missing") << true << lacking("aac");
        QTest::newRow("another failure") << true << Script().err("Cannot open display\n").exit(1);
        QTest::newRow("death by a signal")
            << true << Script().err("Unknown encoder 'h264_videotoolbox'\n").die(SIGTERM);
    }
    void isNotTriedForAnyOtherEnd()
    {
        QFETCH(const bool, hardware);
        QFETCH(const Script, script);
        m_settings.useHardware = hardware;
        m_tools->setScript(u"ffmpeg"_s, script);
        QVERIFY(!convert().isSuccess());
        QCOMPARE(m_tools->runs(u"ffmpeg"_s).size(), 1);
    }

    void isTriedWhateverTheExitStatus()
    {
        m_tools->setScript(u"ffmpeg"_s, 1,
                           Script().err("Unknown encoder 'h264_videotoolbox'").exit(8));
        m_tools->setScript(u"ffmpeg"_s, 2, Script());
        QVERIFY(convert().isSuccess());
    }

    void theMissingLineNeedNotBeAmongTheLast()
    {
        m_tools->setScript(u"ffmpeg"_s, 1,
                           Script()
                               .err("Unknown encoder 'h264_videotoolbox'\n")
                               .errRepeatedly(100, "and so on\n")
                               .exit(1));
        m_tools->setScript(u"ffmpeg"_s, 2, Script());
        QVERIFY(convert().isSuccess());
    }

private:
    ConversionEnd convert(ProgressLog &progress)
    {
        const QUrl source = QUrl::fromLocalFile(u"/in/clip.mkv"_s);
        const QUrl destination = QUrl::fromLocalFile(m_tools->path(u"out/clip_converted.mp4"_s));
        return endOf(m_service.convert(source, destination, m_settings, progress.handler()));
    }

    ConversionEnd convert()
    {
        ProgressLog progress;
        return convert(progress);
    }

    std::optional<StandInTools> m_tools;
    ConversionSettings m_settings;
    FFmpegService m_service;
};

QUORVALE_TEST(SoftwareEncoderTest)
#include "softwareencoder_test.moc"
