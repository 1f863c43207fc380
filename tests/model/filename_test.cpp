// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "model/filename.h"
#include "support/testclass.h"

#include <QTest>

using namespace quorvale;
using namespace Qt::StringLiterals;

class FileNameTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void extensions_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("extension");
        QTest::addColumn<QString>("base");
        QTest::newRow("ordinary") << u"clip.mkv"_s << u"mkv"_s << u"clip"_s;
        QTest::newRow("case is kept") << u"clip.M2TS"_s << u"M2TS"_s << u"clip"_s;
        QTest::newRow("only the last counts") << u"trip.final.mkv"_s << u"mkv"_s << u"trip.final"_s;
        QTest::newRow("backup") << u"video.MP4.bak"_s << u"bak"_s << u"video.MP4"_s;
        QTest::newRow("none") << u"clip"_s << u""_s << u"clip"_s;
        QTest::newRow("hidden file") << u".mp4"_s << u""_s << u".mp4"_s;
        QTest::newRow("hidden file with extension") << u".clip.mp4"_s << u"mp4"_s << u".clip"_s;
        QTest::newRow("trailing dot") << u"clip."_s << u""_s << u"clip."_s;
        QTest::newRow("empty") << u""_s << u""_s << u""_s;
    }
    void extensions()
    {
        QFETCH(const QString, name);
        QFETCH(const QString, extension);
        QFETCH(const QString, base);
        QCOMPARE(pathExtension(name.toUtf8()), extension.toUtf8());
        QCOMPARE(withoutExtension(name.toUtf8()), base.toUtf8());
    }

    void components_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("last");
        QTest::addColumn<QString>("folder");
        QTest::newRow("ordinary") << u"/videos/Trip/clip.mkv"_s << u"clip.mkv"_s << u"Trip"_s;
        QTest::newRow("in the root") << u"/clip.mkv"_s << u"clip.mkv"_s << u"/"_s;
        QTest::newRow("trailing slash") << u"/videos/Trip/"_s << u"Trip"_s << u"videos"_s;
        QTest::newRow("root") << u"/"_s << u"/"_s << u"/"_s;
        QTest::newRow("above a name") << u"/v/a/b/../../c.mkv"_s << u"c.mkv"_s << u"b/../.."_s;
        QTest::newRow("above the root") << u"/../c.mkv"_s << u"c.mkv"_s << u"/.."_s;
    }
    void components()
    {
        QFETCH(const QString, path);
        QFETCH(const QString, last);
        QFETCH(const QString, folder);
        QCOMPARE(lastPathComponent(path.toUtf8()), last.toUtf8());
        QCOMPARE(folderName(path.toUtf8()), folder.toUtf8());
    }

    void outputNames_data()
    {
        QTest::addColumn<QString>("source");
        QTest::addColumn<OutputCodec>("codec");
        QTest::addColumn<int>("attempt");
        QTest::addColumn<QString>("output");
        using enum OutputCodec;
        QTest::newRow("H.264") << u"clip.mkv"_s << h264 << 1 << u"clip_converted.mp4"_s;
        QTest::newRow("HEVC") << u"clip.mov"_s << hevc << 1 << u"clip_converted.mp4"_s;
        QTest::newRow("ProRes 422") << u"clip.mp4"_s << proRes422 << 1 << u"clip_converted.mov"_s;
        QTest::newRow("ProRes 422 HQ")
            << u"clip.mkv"_s << proRes422HQ << 1 << u"clip_converted.mov"_s;
        QTest::newRow("ProRes 4444") << u"clip.mkv"_s << proRes4444 << 1 << u"clip_converted.mov"_s;
        QTest::newRow("only the last extension goes")
            << u"trip.final.mkv"_s << h264 << 1 << u"trip.final_converted.mp4"_s;
        QTest::newRow("second attempt") << u"clip.mkv"_s << h264 << 2 << u"clip_converted_2.mp4"_s;
        QTest::newRow("tenth attempt")
            << u"clip.mkv"_s << proRes422 << 10 << u"clip_converted_10.mov"_s;
        QTest::newRow("no digit grouping")
            << u"clip.mkv"_s << h264 << 1234 << u"clip_converted_1234.mp4"_s;
    }
    void outputNames()
    {
        QFETCH(const QString, source);
        QFETCH(const OutputCodec, codec);
        QFETCH(const int, attempt);
        QFETCH(const QString, output);
        QCOMPARE(outputFileName(source.toUtf8(), codec, attempt), output.toUtf8());
    }

    void bytesThatAreNoTextAreKept()
    {
        const QByteArray path = "/caf\xe9 \xff/\xfe.x.\xe9";
        QCOMPARE(lastPathComponent(path), "\xfe.x.\xe9");
        QCOMPARE(folderName(path), "caf\xe9 \xff");
        QCOMPARE(pathExtension(path), "\xe9");
        QCOMPARE(outputFileName("\xfe.x.\xe9", OutputCodec::h264), "\xfe.x_converted.mp4");
    }
};

QUORVALE_TEST(FileNameTest)
#include "filename_test.moc"
