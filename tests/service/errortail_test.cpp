// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "service/errortail.h"
#include "support/testclass.h"

#include <QTest>

using namespace quorvale;
using namespace Qt::StringLiterals;

namespace {

QString tailOf(QByteArrayView stream)
{
    ErrorTail tail(u"h264_videotoolbox"_s, "/in/a.mkv", "/out/a.mp4");
    tail.read(stream);
    tail.finish();
    return tail.text();
}

bool lacksEncoder(QByteArrayView stream)
{
    ErrorTail tail(u"h264_videotoolbox"_s, "/in/a.mkv", "/out/a.mp4");
    tail.read(stream);
    tail.finish();
    return tail.lacksEncoder();
}

} // namespace

class ErrorTailTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void keepsTheLastEightNonEmptyLinesInOrder()
    {
        QCOMPARE(tailOf("1\n\n2\n3\n\n\n4\n5\n6\n7\n8\n\n9\n10\n\n"), u"3\n4\n5\n6\n7\n8\n9\n10"_s);
    }

    void keepsAllLinesWhenThereAreFewer() { QCOMPARE(tailOf("one\ntwo\n"), u"one\ntwo"_s); }

    void aLineOfSpacesCountsAsNonEmpty()
    {
        QCOMPARE(tailOf("one\n   \n\ntwo"), u"one\n   \ntwo"_s);
    }

    void onlyALineFeedEndsALine()
    {
        QCOMPARE(tailOf("1\r2\r3\r4\r5\r6\r7\r8\r9\nlast\n"), u"1\r2\r3\r4\r5\r6\r7\r8\r9\nlast"_s);
    }

    void aLastLineWithoutLineFeedCounts() { QCOMPARE(tailOf("one\ntwo"), u"one\ntwo"_s); }

    void isEmptyWithoutANonEmptyLine()
    {
        QCOMPARE(tailOf("\n\n\n"), QString());
        QCOMPARE(tailOf(""), QString());
    }

    void replacesInvalidUtf8()
    {
        QCOMPARE(tailOf("caf\xc3\xa9 \xff\nnext"), u"caf\u00e9 \ufffd\nnext"_s);
    }

    void noticesAMissingEncoder_data()
    {
        QTest::addColumn<QByteArray>("stream");
        QTest::addColumn<bool>("isMissing");
        QTest::newRow("bare") << QByteArray("Unknown encoder 'h264_videotoolbox'\n") << true;
        QTest::newRow("with a tag")
            << QByteArray("[vost#0:0 @ 0x55d0] Unknown encoder 'h264_videotoolbox'\n") << true;
        QTest::newRow("last line without line feed")
            << QByteArray("Unknown encoder 'h264_videotoolbox'") << true;
        QTest::newRow("followed by many lines")
            << QByteArray("Unknown encoder 'h264_videotoolbox'\n" + QByteArray("x\n").repeated(20))
            << true;
        QTest::newRow("another encoder")
            << QByteArray("Unknown encoder 'hevc_videotoolbox'\n") << false;
        QTest::newRow("not at the end")
            << QByteArray("Unknown encoder 'h264_videotoolbox' in a sentence\n") << false;
        QTest::newRow("other text")
            << QByteArray("Error while opening encoder h264_videotoolbox\n") << false;
    }
    void noticesAMissingEncoder()
    {
        QFETCH(const QByteArray, stream);
        QFETCH(const bool, isMissing);
        QCOMPARE(lacksEncoder(stream), isMissing);
    }

    void noticesThatTheSourceEndsEarly_data()
    {
        QTest::addColumn<QByteArray>("stream");
        QTest::addColumn<bool>("isEarly");
        for (const char *words :
             {"File ended prematurely", "File ended prematurely at pos. 909 (0x38d)",
              "stream 1, offset 0x259306: partial file",
              "Packet corrupt (stream = 0, dts = 11743)."}) {
            const QByteArray line = words + QByteArray("\n");
            QTest::addRow("%.30s", words) << "[flv @ 0x55d0] " + line << true;
            QTest::addRow("%.30s, newer", words) << "[in#0/flv @ 0x55d0] " + line << true;
            QTest::addRow("%.30s, metadata", words) << "    title : [x] " + line << false;
            QTest::addRow("%.30s, bare", words) << line << false;
            QTest::addRow("%.30s, long ago", words)
                << "[flv @ 0x55d0] " + line + QByteArray("x\n").repeated(20) << true;
        }
        QTest::newRow("corrupt pictures")
            << QByteArray("[h264 @ 0x55d0] corrupted macroblock 18 1\n") << false;
    }
    void noticesThatTheSourceEndsEarly()
    {
        QFETCH(const QByteArray, stream);
        ErrorTail tail(u"libx264"_s, "/in/a.mkv", "/out/a.mp4");
        tail.read(stream);
        tail.finish();
        QTEST(tail.saysEarlyEnd(), "isEarly");
    }

    // Recordings have corrupt packets, which are no reason to read them again.
    void anEarlyEndMayMeanAReadErrorInMoviesOnly()
    {
        for (const bool isMovie : {true, false}) {
            ErrorTail tail(u"libx264"_s, "/in/a", "/out/a.mp4");
            tail.read((isMovie ? "[mov,mp4,m4a" : "[mpegts")
                      + QByteArray(" @ 0x55d0] Packet corrupt (stream = 0, dts = 11743).\n"));
            QVERIFY(tail.saysEarlyEnd());
            QCOMPARE(tail.mayMeanReadError(), isMovie);
        }
    }
};

QUORVALE_TEST(ErrorTailTest)
#include "errortail_test.moc"
