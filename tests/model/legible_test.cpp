// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "model/legible.h"
#include "support/testclass.h"

#include <QTest>

using namespace quorvale;
using namespace Qt::StringLiterals;

class LegibleTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aNameCanNeitherCutItselfOffNorTurnItselfRound_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("shown");
        QTest::newRow("override") << u"holiday \u202egnp.exe mixed.mp4"_s
                                  << u"holiday \ufffdgnp.exe mixed.mp4"_s;
        QTest::newRow("embedding in isolate")
            << u"\u2067\u202bfdp\u202c\u2069.mkv"_s << u"\ufffd\ufffdfdp\ufffd\ufffd.mkv"_s;
        QTest::newRow("marks that swap words")
            << u"\u200favi.\u061c\u200eclip.mp4"_s << u"avi.clip.mp4"_s;
        QTest::newRow("nothing else") << u"\u200f"_s << QString();
        for (
            const QChar illegible :
            u"\t\n\v\f\r\u001b\u001f\u007f\u0080\u0085\u009f\u2028\u2029\u202a\u202d\u2066\u2068"_s)
            QTest::addRow("U+%04X", illegible.unicode())
                << u"a%1b.mkv"_s.arg(illegible) << u"a\ufffdb.mkv"_s;
        QTest::newRow("NUL") << u"a%1b.mkv"_s.arg(QChar(QChar::Null)) << u"a\ufffdb.mkv"_s;
    }
    void aNameCanNeitherCutItselfOffNorTurnItselfRound()
    {
        QFETCH(const QString, name);
        QTEST(legible(name), "shown");
    }

    // Joiners and variation selectors among them, without which these are other words and pictures.
    void whateverPeopleWriteIsShownAsItIs_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("Latin") << u"clip (1) \u2013 50% #2\u00a0\u202fé.mp4"_s;
        QTest::newRow("Hebrew") << u"\u05e9\u05dc\u05d5\u05dd 12.mkv"_s;
        QTest::newRow("Persian") << u"\u0645\u06cc\u200c\u062e\u0648\u0627\u0647\u0645.mov"_s;
        QTest::newRow("Devanagari") << u"\u0915\u094d\u200d\u0937.webm"_s;
        QTest::newRow("Chinese") << u"\u65e5\u672c\u3000.avi"_s;
        QTest::newRow("family") << u"\U0001f469\u200d\U0001f467 \u2764\ufe0f.mp4"_s;
        QTest::newRow("flag of England")
            << u"\U0001f3f4\U000e0067\U000e0062\U000e0065\U000e006e\U000e0067\U000e007f.mp4"_s;
        QTest::newRow("no text") << u"\ufffd"_s;
    }
    void whateverPeopleWriteIsShownAsItIs()
    {
        QFETCH(const QString, name);
        QCOMPARE(legible(name), name);
    }

    void linesStayLines()
    {
        QCOMPARE(legibleLines(u"One\u202e.\n\n\tTwo.\n"_s), u"One\ufffd.\n\n\ufffdTwo.\n"_s);
    }
};

QUORVALE_TEST(LegibleTest)
#include "legible_test.moc"
