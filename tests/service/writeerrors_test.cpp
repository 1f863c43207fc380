// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "service/writeerrors.h"
#include "support/testclass.h"

#include <QTest>

using namespace quorvale;
using namespace Qt::StringLiterals;

namespace {

const QByteArray secondPass =
    "[mp4 @ 0x55d0] Starting second pass: moving the moov atom to the beginning of the file\n";

QString errorsIn(const QByteArray &standardError, const QByteArray &destination = "/out/a.mp4")
{
    WriteErrors errors(destination);
    for (const QByteArray &line : standardError.split('\n'))
        errors.takeLine(line);
    return errors.text();
}

} // namespace

class WriteErrorsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyVersionsWordsAreKnown_data()
    {
        QTest::addColumn<QByteArray>("line");
        QTest::newRow("trailer, 4.x and 5.x")
            << QByteArray("Error writing trailer of /out/a.mp4: No space left on device");
        QTest::newRow("close, 5.x")
            << QByteArray("Error closing file /out/a.mp4: Operation not permitted");
        QTest::newRow("trailer, 6.x and newer") << QByteArray(
            "[out#0/mp4 @ 0x55d1c3a4e840] Error writing trailer: No space left on device");
        QTest::newRow("close, 6.x and newer")
            << QByteArray("[out#0/mp4 @ 0x55d1c3a4e840] Error closing file: Input/output error");
        QTest::newRow("refusal") << QByteArray("File '/out/a.mp4' already exists. Exiting.");
    }
    void everyVersionsWordsAreKnown()
    {
        QFETCH(const QByteArray, line);
        QCOMPARE(errorsIn("Output #0, mp4\n" + line + "\nmore\n"), QString::fromUtf8(line));
    }

    void nothingElseIsAnError_data()
    {
        QTest::addColumn<QByteArray>("line");
        QTest::newRow("another file")
            << QByteArray("Error writing trailer of /out/b.mp4: No space left on device");
        QTest::newRow("a longer name")
            << QByteArray("Error closing file /out/a.mp4.mp4: No space left on device");
        QTest::newRow("a metadata line")
            << QByteArray("    title           : Error closing file /out/a.mp4: x");
        QTest::newRow("indented") << QByteArray(" Error closing file /out/a.mp4: x");
        QTest::newRow("a codec's line")
            << QByteArray("[libx264 @ 0x55] Error writing trailer of /out/a.mp4: x");
        QTest::newRow("a codec's line in a muxer's words")
            << QByteArray("[mp4 @ 0x55] Error writing trailer: x");
        QTest::newRow("a muxer's other line")
            << QByteArray("[out#0/mp4 @ 0x55] video:98kB audio:12kB Error writing trailer: x");
        QTest::newRow("a muxer without an end") << QByteArray("[out#0 Error writing trailer: x");
        QTest::newRow("a refusal with more to it")
            << QByteArray("File '/out/a.mp4' already exists. Exiting. Really");
        QTest::newRow("a question") << QByteArray("File '/out/a.mp4' already exists. Overwrite?");
    }
    void nothingElseIsAnError()
    {
        QFETCH(const QByteArray, line);
        QCOMPARE(errorsIn(line + '\n'), QString());
    }

    void anEmptyOutputIsKnown_data()
    {
        QTest::addColumn<QByteArray>("line");
        QTest::addColumn<bool>("isEmpty");
        const QByteArray old = "video:0kB audio:0kB subtitle:0kB other streams:0kB global "
                               "headers:0kB muxing overhead: ";
        const QByteArray present = "[out#0/mp4 @ 0x55d1] video:0KiB audio:0KiB subtitle:0KiB other "
                                   "streams:0KiB global headers:0KiB muxing overhead: ";
        QTest::newRow("4.x and 5.x") << old + "unknown" << true;
        QTest::newRow("6.x and newer") << present + "unknown" << true;
        QTest::newRow("a little") << old + "915.217392%" << false;
        QTest::newRow("a little, newer") << present + "915.217392%" << false;
        QTest::newRow("much into a pipe") << "video:12" + old.sliced(7) + "unknown" << false;
        QTest::newRow("metadata") << "    title : " + old + "unknown" << false;
        QTest::newRow("another's") << "[libx264 @ 0x55d1] " + old + "unknown" << false;
    }
    void anEmptyOutputIsKnown()
    {
        QFETCH(const QByteArray, line);
        QFETCH(const bool, isEmpty);
        WriteErrors errors("/out/a.mp4");
        errors.takeLine(line);
        QCOMPARE(errors.isNothingWritten(), isEmpty);
        QCOMPARE(errors.text(), QString());
        errors.takeLine(secondPass.trimmed());
        QVERIFY(!errors.isNothingWritten());
    }

    void allOfThemAreKeptInTheirOrder()
    {
        QCOMPARE(errorsIn("Error writing trailer of /out/a.mp4: No space left on device\n"
                          "frame=   25 fps=0.0\n\n"
                          "Error closing file /out/a.mp4: No space left on device\n"),
                 u"Error writing trailer of /out/a.mp4: No space left on device\n"
                 "Error closing file /out/a.mp4: No space left on device"_s);
    }

    void aFloodOfThemLeavesTheLastEight()
    {
        QByteArray flood;
        for (int i = 0; i < 1000; ++i)
            flood += "Error closing file /out/a.mp4: " + QByteArray::number(i) + '\n';
        const QStringList lines = errorsIn(flood).split(u'\n');
        QCOMPARE(lines.size(), 8);
        QCOMPARE(lines.last(), u"Error closing file /out/a.mp4: 999"_s);
    }

    // ffmpeg prints what a source contains before the second pass, and its own errors behind it.
    void whatStandsBeforeTheSecondPassIsForgotten()
    {
        const QByteArray line = "Error writing trailer of /out/a.mp4: no\n";
        QCOMPARE(errorsIn(line + secondPass), QString());
        QCOMPARE(errorsIn(line + "[mov" + secondPass.mid(4)), QString());
        QCOMPARE(errorsIn(line + secondPass + line), QString::fromUtf8(line.trimmed()));
        // Only the muxer says so.
        QVERIFY(!errorsIn(line + ' ' + secondPass).isEmpty());
        QVERIFY(!errorsIn(line + "[libx264" + secondPass.mid(4)).isEmpty());
    }

    void aPathOfSeveralLinesIsFoundOverSeveralLines()
    {
        const QByteArray path = "/out/one\n\ntwo\n_converted.mp4";
        const QByteArray error = "Error writing trailer of " + path + ": File too large";
        QCOMPARE(errorsIn("x\n" + error + "\nx\n", path), QString::fromUtf8(error));
        const QByteArray refusal = "File '" + path + "' already exists. Exiting.";
        QCOMPARE(errorsIn(refusal + '\n', path), QString::fromUtf8(refusal));
        QCOMPARE(errorsIn("Error writing trailer of /out/one\n\ntwo\n_converted.mp3: x\n", path),
                 QString());
    }

    void thePathIsComparedAsItIsPrinted()
    {
        const QByteArray path = "/out/\x01\x1b[1m\t\r\x7f\xe9%.mp4";
        const QByteArray printed = "/out/??[1m\t\r\x7f\xe9%.mp4";
        QVERIFY(!errorsIn("Error closing file " + printed + ": x\n", path).isEmpty());
    }
};

QUORVALE_TEST(WriteErrorsTest)
#include "writeerrors_test.moc"
