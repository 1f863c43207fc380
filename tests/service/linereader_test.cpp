// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "service/linereader.h"
#include "support/testclass.h"

#include <QList>
#include <QTest>

using namespace quorvale;

using Endings = LineReader::Endings;

namespace {

struct Seen
{
    QList<QByteArray> lines;
    QList<bool> complete;

    LineReader::Handler handler()
    {
        return [this](const LineReader::Line &line) {
            lines << line.bytes.toByteArray();
            complete << line.isComplete;
        };
    }
};

} // namespace

class LineReaderTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void linesDoNotDependOnHowTheStreamIsCut_data()
    {
        QTest::addColumn<Endings>("endings");
        QTest::addColumn<QByteArray>("stream");
        QTest::addColumn<QList<QByteArray>>("lines");
        const auto row = [](const char *name, Endings endings, const QByteArray &stream,
                            const QList<QByteArray> &lines) {
            QTest::newRow(name) << endings << stream << lines;
        };
        row("line feeds", Endings::lineFeedOrReturn, "a\nbc\n", {"a", "bc"});
        row("returns", Endings::lineFeedOrReturn, "a\rbc\r", {"a", "bc"});
        row("returns with line feeds", Endings::lineFeedOrReturn, "a\r\nbc\r\n", {"a", "bc"});
        row("all mixed", Endings::lineFeedOrReturn, "a\rb\nc\r\nd", {"a", "b", "c", "d"});
        row("empty lines", Endings::lineFeedOrReturn, "\n\r\r\n\n", {"", "", "", ""});
        row("line feed before return", Endings::lineFeedOrReturn, "a\n\rb", {"a", "", "b"});
        row("last line without ending", Endings::lineFeedOrReturn, "a\nprogress=end",
            {"a", "progress=end"});
        row("nothing", Endings::lineFeedOrReturn, "", {});
        row("only line feeds end", Endings::lineFeed, "a\rb\r\nc", {"a\rb\r", "c"});
        row("NUL is an ordinary byte", Endings::lineFeed, QByteArray("a\0b\n", 4),
            {QByteArray("a\0b", 3)});
    }
    void linesDoNotDependOnHowTheStreamIsCut()
    {
        QFETCH(const Endings, endings);
        QFETCH(const QByteArray, stream);
        QFETCH(const QList<QByteArray>, lines);
        for (qsizetype piece = 1; piece <= stream.size() + 1; ++piece) {
            Seen seen;
            LineReader reader(endings, seen.handler());
            for (qsizetype at = 0; at < stream.size(); at += piece)
                reader.read(
                    QByteArrayView(stream).sliced(at).first(qMin(piece, stream.size() - at)));
            reader.finish();
            QCOMPARE(seen.lines, lines);
            QVERIFY(!seen.complete.contains(false));
        }
    }

    void keepsTheBeginningOfAnEndlessLine()
    {
        Seen seen;
        LineReader reader(Endings::lineFeed, seen.handler());
        for (int i = 0; i < 1000; ++i)
            reader.read(QByteArray(1000, 'x'));
        reader.read("\nshort\n");
        QCOMPARE(seen.lines,
                 (QList<QByteArray>{QByteArray(LineReader::longestLine, 'x'), "short"}));
        QCOMPARE(seen.complete, (QList<bool>{false, true}));
    }

    void theLongestLineIsWhole()
    {
        Seen seen;
        LineReader reader(Endings::lineFeed, seen.handler());
        reader.read(QByteArray(LineReader::longestLine, 'x') + '\n'
                    + QByteArray(LineReader::longestLine + 1, 'y'));
        reader.finish();
        QCOMPARE(seen.complete, (QList<bool>{true, false}));
    }
};

QUORVALE_TEST(LineReaderTest)
#include "linereader_test.moc"
