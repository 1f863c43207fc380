// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "service/readerrors.h"
#include "support/testclass.h"

#include <QTest>

using namespace quorvale;
using namespace Qt::StringLiterals;

namespace {

const QByteArray mapping = "Stream mapping:\n";
const QByteArray newError = "[in#0/matroska,webm @ 0x55d1] Error during demuxing: ";

QString errorsIn(const QByteArray &standardError, const QByteArray &source = "/in/a.mkv",
                 const QByteArray &destination = "/out/a.mp4")
{
    ReadErrors errors(source, destination);
    for (const QByteArray &line : standardError.split('\n'))
        errors.takeLine(line);
    return errors.text();
}

} // namespace

class ReadErrorsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyVersionsWordsAreKnown_data()
    {
        QTest::addColumn<QByteArray>("line");
        for (const char *error :
             {"Input/output error", "Stale file handle", "Transport endpoint is not connected",
              "Connection timed out", "No such device", "No such device or address"}) {
            QTest::addRow("%s, 4.x and 5.x", error) << QByteArray("/in/a.mkv: ") + error;
            QTest::addRow("%s, 6.x and newer", error) << newError + error;
        }
    }
    void everyVersionsWordsAreKnown()
    {
        QFETCH(const QByteArray, line);
        QCOMPARE(errorsIn(mapping + line
                          + "\n[mp4 @ 0x55d0] Starting second pass: moving the moov "
                            "atom to the beginning of the file\n"),
                 QString::fromUtf8(line));
    }

    void nothingElseIsAnError_data()
    {
        QTest::addColumn<QByteArray>("line");
        QTest::newRow("a fault of the content")
            << QByteArray("/in/a.mkv: Invalid data found when processing input");
        QTest::newRow("a fault of the content, newer")
            << newError + "Invalid data found when processing input";
        QTest::newRow("another file") << QByteArray("/in/b.mkv: Input/output error");
        QTest::newRow("another of ffmpeg's parts")
            << QByteArray("[in#0/avi @ 0x55d1] Error during seeking: Input/output error");
        QTest::newRow("a codec's line")
            << QByteArray("[h264 @ 0x55d1] Error during demuxing: Input/output error");
        QTest::newRow("indented") << QByteArray("    /in/a.mkv: Input/output error");
        QTest::newRow("more to it") << QByteArray("/in/a.mkv: Input/output error, perhaps");
    }
    void nothingElseIsAnError()
    {
        QFETCH(const QByteArray, line);
        QCOMPARE(errorsIn(mapping + line + '\n'), QString());
    }

    void onlyTheFirstIsKept()
    {
        QCOMPARE(errorsIn(mapping + "/in/a.mkv: Connection timed out\n/in/a.mkv: No such device\n"),
                 u"/in/a.mkv: Connection timed out"_s);
    }

    void whoSaysSoInItsMetadataIsNotBelieved()
    {
        const QByteArray line = newError + "Input/output error\n";
        QCOMPARE(errorsIn(line + mapping + line), QString());
        QCOMPARE(errorsIn("x\n" + mapping + line + mapping + mapping), QString());
        QVERIFY(!errorsIn(mapping + mapping + line).isEmpty());
        QCOMPARE(errorsIn(mapping + line, "/in/a.mkv", "/out/a\n" + line + "b.mp4"), QString());
    }

    void aPathIsComparedAsItIsPrintedOverSeveralLines()
    {
        const QByteArray error = "/in/one\n\ntwo??\n.mkv: Input/output error";
        const QByteArray path = "/in/one\n\ntwo\x01\x1b\n.mkv";
        QCOMPARE(errorsIn(mapping + error + '\n', path), QString::fromUtf8(error));
        QCOMPARE(errorsIn(mapping + newError + "No such device\n", path),
                 QString::fromUtf8(newError + "No such device"));
        QCOMPARE(errorsIn(mapping + error.sliced(1) + '\n', path), QString());
    }
};

QUORVALE_TEST(ReadErrorsTest)
#include "readerrors_test.moc"
