// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "model/encoderarguments.h"
#include "support/fatal.h"
#include "support/testclass.h"

#include <QTest>

#include <limits>

using namespace quorvale;
using namespace Qt::StringLiterals;

using Bitrate = std::optional<qint64>;

namespace {

QStringList words(const char *line)
{
    return QString::fromLatin1(line).split(u' ', Qt::SkipEmptyParts);
}

constexpr qint64 largest = std::numeric_limits<qint64>::max();
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

} // namespace

class EncoderArgumentsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void targetBitrate_data()
    {
        QTest::addColumn<EncodingGoal>("goal");
        QTest::addColumn<OutputCodec>("codec");
        QTest::addColumn<Bitrate>("source");
        QTest::addColumn<Bitrate>("target");
        using enum EncodingGoal;
        using enum OutputCodec;
        QTest::newRow("balanced H.264 takes 1.6 times")
            << balanced << h264 << Bitrate(2500000) << Bitrate(4000000);
        QTest::newRow("balanced HEVC takes 1.2 times")
            << balanced << hevc << Bitrate(2500000) << Bitrate(3000000);
        QTest::newRow("truncates for H.264")
            << balanced << h264 << Bitrate(3333333) << Bitrate(5333332);
        QTest::newRow("truncates for HEVC")
            << balanced << hevc << Bitrate(3333333) << Bitrate(3999999);
        QTest::newRow("truncates a negative toward zero")
            << balanced << h264 << Bitrate(-3) << Bitrate(-4);
        QTest::newRow("balanced zero") << balanced << hevc << Bitrate(0) << Bitrate(0);
        QTest::newRow("same size has no floor")
            << sameSize << h264 << Bitrate(100000) << Bitrate(100000);
        QTest::newRow("same size at the largest")
            << sameSize << hevc << Bitrate(largest) << Bitrate(largest);
        for (const OutputCodec codec : allCases<OutputCodec>()) {
            const QString name = rawValue(codec);
            for (const Bitrate source : {Bitrate(0), Bitrate(5000000), Bitrate(largest)})
                QTest::addRow("constant quality, %s, %lld", qPrintable(name), *source)
                    << constantQuality << codec << source << Bitrate();
            for (const EncodingGoal goal : allCases<EncodingGoal>()) {
                QTest::addRow("unknown source, %s, %s", qPrintable(name),
                              qPrintable(rawValue(goal)))
                    << goal << codec << Bitrate() << Bitrate();
                if (isProRes(codec))
                    QTest::addRow("ProRes, %s, %s", qPrintable(name), qPrintable(rawValue(goal)))
                        << goal << codec << Bitrate(largest) << Bitrate();
            }
        }
    }
    void targetBitrate()
    {
        QFETCH(const EncodingGoal, goal);
        QFETCH(const OutputCodec, codec);
        QFETCH(const Bitrate, source);
        QFETCH(const Bitrate, target);
        QVERIFY(quorvale::targetBitrate(goal, source, codec) == target);
    }

    void everyCodecWithAndWithoutHardwareAndTarget_data()
    {
        QTest::addColumn<OutputCodec>("codec");
        QTest::addColumn<bool>("hardware");
        QTest::addColumn<Bitrate>("target");
        QTest::addColumn<QStringList>("arguments");
        const auto row = [](OutputCodec codec, bool hardware, Bitrate target, const char *line) {
            QTest::newRow(line) << codec << hardware << target << words(line);
        };
        using enum OutputCodec;
        const Bitrate t(1000000);
        row(h264, true, t,
            "-c:v h264_videotoolbox -tag:v avc1 -b:v 1000000 -maxrate 1500000 -bufsize 2000000 "
            "-pix_fmt yuv420p");
        row(h264, true, {}, "-c:v h264_videotoolbox -tag:v avc1 -q:v 76 -pix_fmt yuv420p");
        row(h264, false, t,
            "-c:v libx264 -preset medium -tag:v avc1 -b:v 1000000 -maxrate 1500000 -bufsize "
            "2000000 -pix_fmt yuv420p");
        row(h264, false, {}, "-c:v libx264 -preset medium -tag:v avc1 -crf 18 -pix_fmt yuv420p");
        row(hevc, true, t,
            "-c:v hevc_videotoolbox -tag:v hvc1 -b:v 1000000 -maxrate 1500000 -bufsize 2000000");
        row(hevc, true, {}, "-c:v hevc_videotoolbox -tag:v hvc1 -q:v 76");
        row(hevc, false, t,
            "-c:v libx265 -preset medium -tag:v hvc1 -b:v 1000000 -maxrate 1500000 -bufsize "
            "2000000");
        row(hevc, false, {}, "-c:v libx265 -preset medium -tag:v hvc1 -crf 18");
        row(proRes422, true, t, "-c:v prores_videotoolbox -profile:v 2");
        row(proRes422, false, t, "-c:v prores_ks -profile:v 2 -vendor apl0");
        row(proRes422HQ, true, t, "-c:v prores_videotoolbox -profile:v 3");
        row(proRes422HQ, false, t, "-c:v prores_ks -profile:v 3 -vendor apl0");
        row(proRes4444, true, t, "-c:v prores_videotoolbox -profile:v 4");
        row(proRes4444, false, t, "-c:v prores_ks -profile:v 4 -vendor apl0");
    }
    void everyCodecWithAndWithoutHardwareAndTarget()
    {
        QFETCH(const OutputCodec, codec);
        QFETCH(const bool, hardware);
        QFETCH(const Bitrate, target);
        QFETCH(const QStringList, arguments);
        QCOMPARE(videoArguments(codec, hardware, 76.0, target), arguments);
        if (isProRes(codec))
            QCOMPARE(videoArguments(codec, hardware, notANumber, std::nullopt), arguments);
        if (target && !isProRes(codec))
            QCOMPARE(videoArguments(codec, hardware, notANumber, target), arguments);
    }

    void bitrates_data()
    {
        QTest::addColumn<qint64>("requested");
        QTest::addColumn<QStringList>("arguments");
        QTest::newRow("below the floor")
            << qint64(100000) << words("-b:v 250000 -maxrate 375000 -bufsize 500000");
        QTest::newRow("zero") << qint64(0) << words("-b:v 250000 -maxrate 375000 -bufsize 500000");
        QTest::newRow("negative") << qint64(-1)
                                  << words("-b:v 250000 -maxrate 375000 -bufsize 500000");
        QTest::newRow("smallest integer") << std::numeric_limits<qint64>::min()
                                          << words("-b:v 250000 -maxrate 375000 -bufsize 500000");
        QTest::newRow("just above the floor")
            << qint64(250001) << words("-b:v 250001 -maxrate 375001 -bufsize 500002");
        QTest::newRow("ordinary") << qint64(1000000)
                                  << words("-b:v 1000000 -maxrate 1500000 -bufsize 2000000");
        QTest::newRow("largest that fits")
            << qint64(4611686018427387903)
            << words("-b:v 4611686018427387903 -maxrate 6917529027641081856 -bufsize "
                     "9223372036854775806");
    }
    void bitrates()
    {
        QFETCH(const qint64, requested);
        QFETCH(const QStringList, arguments);
        QCOMPARE(videoArguments(OutputCodec::hevc, true, 76.0, requested).mid(4), arguments);
    }

    void softwareQuality_data()
    {
        QTest::addColumn<double>("quality");
        QTest::addColumn<QString>("factor");
        QTest::newRow("default") << 76.0 << u"18"_s;
        QTest::newRow("best") << 100.0 << u"12"_s;
        QTest::newRow("lowest of the slider") << 30.0 << u"28"_s;
        QTest::newRow("halves go up") << 50.0 << u"24"_s;
        QTest::newRow("clamped above") << 10.0 << u"30"_s;
        QTest::newRow("clamped below") << 120.0 << u"12"_s;
        QTest::newRow("last that is clamped to 30") << 21.7 << u"30"_s;
        // One rounding instead of two would give 23 and 13.
        QTest::newRow("product and sum are rounded each") << 50.000000000000007 << u"24"_s;
        QTest::newRow("and again") << 93.478260869565219 << u"14"_s;
    }
    void softwareQuality()
    {
        QFETCH(const double, quality);
        QFETCH(const QString, factor);
        QCOMPARE(videoArguments(OutputCodec::hevc, false, quality, {}).mid(6),
                 (QStringList{u"-crf"_s, factor}));
    }

    void hardwareQuality_data()
    {
        QTest::addColumn<double>("quality");
        QTest::addColumn<QString>("rounded");
        QTest::newRow("whole") << 76.0 << u"76"_s;
        QTest::newRow("half") << 76.5 << u"77"_s;
        QTest::newRow("half below an odd number") << 30.5 << u"31"_s;
        QTest::newRow("just below a half") << 76.49999999999999 << u"76"_s;
        QTest::newRow("not clamped above") << 250.0 << u"250"_s;
        QTest::newRow("not clamped below, away from zero") << -2.5 << u"-3"_s;
        QTest::newRow("no digit grouping") << 1234567.0 << u"1234567"_s;
    }
    void hardwareQuality()
    {
        QFETCH(const double, quality);
        QFETCH(const QString, rounded);
        QCOMPARE(videoArguments(OutputCodec::hevc, true, quality, {}).mid(4),
                 (QStringList{u"-q:v"_s, rounded}));
    }

    void arithmeticThatDoesNotFitStopsTheProgram_data()
    {
        QTest::addColumn<std::function<void()>>("action");
        const auto row = [](const char *name, const std::function<void()> &action) {
            QTest::newRow(name) << action;
        };
        const auto balanced = [](qint64 source) {
            (void)quorvale::targetBitrate(EncodingGoal::balanced, source, OutputCodec::h264);
        };
        const auto arguments = [](bool hardware, double quality, Bitrate target) {
            (void)videoArguments(OutputCodec::h264, hardware, quality, target);
        };
        row("balanced product", [=] { balanced(largest); });
        row("balanced product just too large", [=] { balanced(5764607523034234880); });
        row("negative balanced product", [=] { balanced(std::numeric_limits<qint64>::min()); });
        row("buffer size", [=] { arguments(true, 76.0, 4611686018427387904); });
        row("maximum rate", [=] { arguments(true, 76.0, largest); });
        row("hardware quality not a number", [=] { arguments(true, notANumber, {}); });
        row("hardware quality infinite", [=] { arguments(true, infinity, {}); });
        row("hardware quality too large", [=] { arguments(true, 1e19, {}); });
        row("software quality not a number", [=] { arguments(false, notANumber, {}); });
        row("software quality infinite", [=] { arguments(false, -infinity, {}); });
        row("software quality too large", [=] { arguments(false, 1e300, {}); });
    }
    void arithmeticThatDoesNotFitStopsTheProgram()
    {
        QFETCH(const std::function<void()>, action);
        QVERIFY(test::stopsTheProgram(action));
    }

    void whatDoesNotFitIsToldBefore_data()
    {
        QTest::addColumn<EncodingGoal>("goal");
        QTest::addColumn<OutputCodec>("codec");
        QTest::addColumn<Bitrate>("source");
        QTest::addColumn<bool>("isEncodable");
        using enum EncodingGoal;
        using enum OutputCodec;
        constexpr qint64 smallest = std::numeric_limits<qint64>::min();
        const auto row = [](const char *name, EncodingGoal goal, OutputCodec codec, Bitrate source,
                            bool isEncodable) {
            QTest::newRow(name) << goal << codec << source << isEncodable;
        };
        row("ordinary", balanced, h264, 2500000, true);
        row("unknown", balanced, h264, {}, true);
        row("zero", sameSize, hevc, 0, true);
        row("a buffer that just fits", sameSize, h264, 4611686018427387903, true);
        row("a buffer that does not", sameSize, h264, 4611686018427387904, false);
        row("the smallest as it is", sameSize, hevc, smallest, true);
        row("the largest as it is", sameSize, hevc, largest, false);
        row("1.6 times, just", balanced, h264, 2882303761517117120, true);
        row("1.6 times", balanced, h264, 2882303761517117440, false);
        row("1.6 times beyond a double's integers", balanced, h264, 5764607523034234880, false);
        row("1.2 times, just", balanced, hevc, 3843071682022822912, true);
        row("1.2 times", balanced, hevc, 3843071682022823424, false);
        row("the largest, more of it", balanced, hevc, largest, false);
        row("the smallest, more of it", balanced, hevc, smallest, false);
        row("the largest by quality", constantQuality, h264, largest, true);
        row("the largest for ProRes", balanced, proRes422, largest, true);
        row("from altered time tables", balanced, h264, 4899916392297398272, false);
    }
    void whatDoesNotFitIsToldBefore()
    {
        QFETCH(const EncodingGoal, goal);
        QFETCH(const OutputCodec, codec);
        QFETCH(const Bitrate, source);
        QFETCH(const bool, isEncodable);
        QCOMPARE(quorvale::isEncodable(goal, source, codec), isEncodable);
        QCOMPARE(test::stopsTheProgram([&] {
                     (void)videoArguments(codec, true, 76.0,
                                          quorvale::targetBitrate(goal, source, codec));
                 }),
                 !isEncodable);
    }

    void arithmeticThatJustFitsDoesNot()
    {
        QVERIFY(!test::stopsTheProgram([] {
            (void)quorvale::targetBitrate(EncodingGoal::balanced, 5764607523034234000,
                                          OutputCodec::h264);
        }));
    }
};

QUORVALE_TEST(EncoderArgumentsTest)
#include "encoderarguments_test.moc"
