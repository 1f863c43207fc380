// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "service/mediainfo.h"
#include "support/testclass.h"

#include <QTest>

#include <limits>

using namespace quorvale;

using Bitrate = std::optional<qint64>;

namespace {

QByteArray described(const QByteArray &format, const QByteArray &streams)
{
    return R"({"streams": [)" + streams + R"(], "format": {"duration": "10.0")" + format + "}}";
}

} // namespace

class MediaInfoTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void bitrates_data()
    {
        QTest::addColumn<QByteArray>("json");
        QTest::addColumn<Bitrate>("bitrate");
        const auto row = [](const char *name, const QByteArray &format, const QByteArray &streams,
                            Bitrate bitrate) {
            QTest::newRow(name) << described(format, streams) << bitrate;
        };
        const QByteArray total = R"(, "bit_rate": "5000000")";
        row("the video's own wins", total, R"({"codec_type": "video", "bit_rate": "1000000"})",
            1000000);
        row("container less audio", total,
            R"({"codec_type": "video"}, {"codec_type": "audio", "bit_rate": "128000"})", 4872000);
        row("container less assumed audio", total,
            R"({"codec_type": "video"}, {"codec_type": "audio"})", 4808000);
        row("container less assumed audio without audio", total, R"({"codec_type": "video"})",
            4808000);
        row("never below the floor", R"(, "bit_rate": "300000")",
            R"({"codec_type": "video"}, {"codec_type": "audio", "bit_rate": "256000"})", 250000);
        row("a later video stream does not count", total,
            R"({"codec_type": "video"}, {"codec_type": "video", "bit_rate": "900000"})", 4808000);
        row("a later audio stream does not count", total,
            R"({"codec_type": "audio"}, {"codec_type": "audio", "bit_rate": "900000"})", 4808000);
        row("the order of the streams does not matter", total,
            R"({"codec_type": "audio", "bit_rate": "100000"}, {"codec_type": "video"})", 4900000);
        row("streams without type are passed over", total,
            R"({"bit_rate": "1"}, {"codec_type": 3, "bit_rate": "2"}, {"codec_type": "video", "bit_rate": "777777"})",
            777777);
        row("the type is case-sensitive", total, R"({"codec_type": "Video", "bit_rate": "1"})",
            4808000);
        row("an own bitrate that is no string", total,
            R"({"codec_type": "video", "bit_rate": 1000000})", 4808000);
        row("an own bitrate that is no number", total,
            R"({"codec_type": "video", "bit_rate": "N/A"})", 4808000);
        row("an empty own bitrate", total, R"({"codec_type": "video", "bit_rate": ""})", 4808000);
        row("an own bitrate with a space", total,
            R"({"codec_type": "video", "bit_rate": "1000000 "})", 4808000);
        row("an own bitrate that overflows", total,
            R"({"codec_type": "video", "bit_rate": "9223372036854775808"})", 4808000);
        row("signs", R"(, "bit_rate": "+5000000")",
            R"({"codec_type": "audio", "bit_rate": "-1000000"})", 6000000);
        row("a negative own bitrate is taken as it stands", total,
            R"({"codec_type": "video", "bit_rate": "-5"})", -5);
        row("nothing known", "", R"({"codec_type": "video"})", {});
        row("container bitrate is no string", R"(, "bit_rate": 5000000)",
            R"({"codec_type": "video"})", {});
        row("container bitrate is empty", R"(, "bit_rate": "")", R"({"codec_type": "video"})", {});
        row("container bitrate is no integer", R"(, "bit_rate": "5000000.0")",
            R"({"codec_type": "video"})", {});
        row("audio bitrate is no integer", total, R"({"codec_type": "audio", "bit_rate": "x"})",
            4808000);
        row("one stream is no object, so none count", total,
            R"({"codec_type": "video", "bit_rate": "1000000"}, 7)", 4808000);
        row("difference beyond 64 bits, large", R"(, "bit_rate": "9223372036854775807")",
            R"({"codec_type": "audio", "bit_rate": "-9223372036854775808"})", 9223372036854775807);
        row("difference beyond 64 bits, small", R"(, "bit_rate": "-9223372036854775808")",
            R"({"codec_type": "audio", "bit_rate": "9223372036854775807"})", 250000);
        row("the last of a hundred streams", total,
            QByteArray(R"({"codec_type": "audio"}, )").repeated(99)
                + R"({"codec_type": "video", "bit_rate": "1000000"})",
            1000000);
        row("the largest own bitrate", total,
            R"({"codec_type": "video", "bit_rate": "9223372036854775807"})", 9223372036854775807);
        row("the smallest own bitrate", total,
            R"({"codec_type": "video", "bit_rate": "-9223372036854775808"})",
            std::numeric_limits<qint64>::min());
        row("an own bitrate below 64 bits", total,
            R"({"codec_type": "video", "bit_rate": "-9223372036854775809"})", 4808000);
        row("an own bitrate of a thousand digits", total,
            R"({"codec_type": "video", "bit_rate": ")" + QByteArray(1000, '9') + R"("})", 4808000);
        row("the largest container bitrate", R"(, "bit_rate": "9223372036854775807")", "",
            9223372036854583807);
        row("the smallest container bitrate", R"(, "bit_rate": "-9223372036854775808")", "",
            250000);
        row("a container bitrate beyond 64 bits", R"(, "bit_rate": "9223372036854775808")", "", {});
        row("an audio bitrate beyond 64 bits", total,
            R"({"codec_type": "audio", "bit_rate": "9223372036854775808"})", 4808000);
        row("an audio bitrate above the container's", total,
            R"({"codec_type": "audio", "bit_rate": "9223372036854775807"})", 250000);
        row("an empty audio bitrate", total, R"({"codec_type": "audio", "bit_rate": ""})", 4808000);
        row("an audio bitrate that is no string", total,
            R"({"codec_type": "audio", "bit_rate": {"x": 1}})", 4808000);
        row("types of every other kind", total,
            R"({"codec_type": null}, {"codec_type": ["video"], "bit_rate": "1"},
               {"codec_type": {"video": "video"}}, {"codec_type": true}, {})",
            4808000);
        row("an own bitrate of every other kind counts as none", total,
            R"({"codec_type": "video", "bit_rate": ["1"]})", 4808000);
        row("a stream that is null, so none count", total,
            R"({"codec_type": "video", "bit_rate": "1"}, null)", 4808000);
        row("other things beside, deeply nested",
            total + ", \"x\": " + QByteArray(500, '[') + "1.5e3" + QByteArray(500, ']'),
            R"({"codec_type": "video", "bit_rate": "1000000", "tags": {"a": {"b": null}}})",
            1000000);
        QTest::newRow("streams are null")
            << QByteArray(R"({"streams": null, "format": {"duration": "10.0"}})") << Bitrate();
        QTest::newRow("no streams")
            << QByteArray(R"({"format": {"duration": "10.0", "bit_rate": "5000000"}})")
            << Bitrate(4808000);
        QTest::newRow("streams are an object") << QByteArray(
            R"({"streams": {"codec_type": "video"}, "format": {"duration": "10.0", "bit_rate": "5000000"}})")
                                               << Bitrate(4808000);
    }
    void bitrates()
    {
        QFETCH(const QByteArray, json);
        QFETCH(const Bitrate, bitrate);
        const auto info = mediaInfoFromJson(json);
        QVERIFY(info);
        QCOMPARE(info->duration, 10.0);
        QVERIFY(info->videoBitrate == bitrate);
    }

    void descriptionsWithoutDuration_data()
    {
        QTest::addColumn<QByteArray>("json");
        for (const char *json : {"",
                                 "{}",
                                 "[]",
                                 "null",
                                 "not json",
                                 R"({"format": {"duration": "1"})",
                                 R"({"format": {"duration": "1"}} x)",
                                 R"({"format": []})",
                                 R"({"format": "x"})",
                                 R"({"format": null})",
                                 R"({"format": {}})",
                                 R"({"format": {"duration": 10.0}})",
                                 R"({"format": {"duration": null}})",
                                 R"({"format": {"duration": "N/A"}})",
                                 R"({"format": {"duration": ""}})",
                                 R"({"format": {"duration": "1e400"}})",
                                 R"({"format": {"duration": "1 "}})",
                                 R"({"format": {"duration": ["1"]}})",
                                 R"({"format": {"duration": true}})",
                                 R"({"Format": {"duration": "1"}})",
                                 R"({"format": {"Duration": "1"}})",
                                 R"([{"format": {"duration": "1"}}])",
                                 R"("format")",
                                 R"({"format": {"duration": " 10"}})",
                                 R"({"format": {"duration": "10s"}})",
                                 R"({"format": {"duration": "10,5"}})",
                                 R"({"streams": []})",
                                 "\xff\xfe{}"})
            QTest::newRow(*json ? json : "empty") << QByteArray(json);
        QTest::newRow("nested too deeply") << QByteArray(100'000, '[');
    }
    void descriptionsWithoutDuration()
    {
        QFETCH(const QByteArray, json);
        QVERIFY(!mediaInfoFromJson(json));
    }

    void banners_data()
    {
        QTest::addColumn<QByteArray>("banner");
        QTest::addColumn<double>("duration");
        QTest::newRow("ordinary") << QByteArray(
            "Input #0\n  Duration: 01:02:03.50, start: 0.0, bitrate: 5 kb/s\n")
                                  << 3723.5;
        QTest::newRow("whole seconds") << QByteArray("Duration: 00:00:07") << 7.0;
        QTest::newRow("many hours") << QByteArray("Duration: 123:00:00.00") << 442800.0;
        QTest::newRow("the first match counts")
            << QByteArray("Duration: 00:00:01.00\nDuration: 00:00:02.00") << 1.0;
        QTest::newRow("a line without numbers is passed over")
            << QByteArray("Duration: N/A\nDuration: 00:00:02.00") << 2.0;
        QTest::newRow("invalid UTF-8 around it")
            << QByteArray("\xff\xfe Duration: 00:00:03.25 \xff") << 3.25;
        QTest::newRow("fraction needs digits") << QByteArray("Duration: 00:00:03.x") << 3.0;
        QTest::newRow("not available") << QByteArray("Duration: N/A, bitrate: N/A") << 0.0;
        QTest::newRow("case-sensitive") << QByteArray("duration: 00:00:03") << 0.0;
        QTest::newRow("one space") << QByteArray("Duration:  00:00:03") << 0.0;
        QTest::newRow("other digits") << QByteArray("Duration: \xd9\xa1\xd9\xa1:00:03") << 0.0;
        QTest::newRow("more hours than a double holds")
            << QByteArray("Duration: " + QByteArray(400, '9') + ":00:03") << 0.0;
        QTest::newRow("empty") << QByteArray() << 0.0;
    }
    void banners()
    {
        QFETCH(const QByteArray, banner);
        QFETCH(const double, duration);
        const MediaInfo info = mediaInfoFromBanner(banner);
        QCOMPARE(info.duration, duration);
        QVERIFY(!info.videoBitrate);
    }
};

QUORVALE_TEST(MediaInfoTest)
#include "mediainfo_test.moc"
