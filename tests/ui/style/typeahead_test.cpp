// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "typeahead.h"

#include "support/testclass.h"

#include <QJSEngine>
#include <QStringListModel>
#include <QTest>

#include <limits>

using namespace quorvale;
using namespace Qt::StringLiterals;

namespace {

const QStringList names{u"Berlin.mkv"_s,  u"bach 2.mkv"_s,       u"\u00c9t\u00e9.mkv"_s,
                        u"bach 10.mkv"_s, u"e\u0301toile.mkv"_s, u"\u0130zmir.mkv"_s};

constexpr int longest = std::numeric_limits<int>::max();

int find(TypeAhead &typeAhead, QStringView typed, int current)
{
    return typeAhead.find(typed.toString(), Qt::NoModifier, current, int(names.size()),
                          [](int index) { return names[index]; });
}

} // namespace

class TypeAheadTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void findsWhatBeginsSo_data()
    {
        QTest::addColumn<int>("current");
        QTest::addColumn<QString>("typed"); // letter by letter, without a pause
        QTest::addColumn<int>("found");
        QTest::newRow("the next") << 0 << u"b"_s << 1;
        QTest::newRow("from the beginning") << -1 << u"b"_s << 0;
        QTest::newRow("round again") << 3 << u"b"_s << 0;
        QTest::newRow("the only one") << 5 << u"i"_s << 5;
        QTest::newRow("the same letter goes on") << 0 << u"bb"_s << 3;
        QTest::newRow("letters that follow stay") << 0 << u"ba"_s << 1;
        QTest::newRow("more and more of them") << 1 << u"bach 1"_s << 3;
        QTest::newRow("the current one still begins so") << 5 << u"be"_s << 0;
        QTest::newRow("another case") << 1 << u"BER"_s << 0;
        QTest::newRow("an accent that is not typed") << 0 << u"ete"_s << 2;
        QTest::newRow("an accent that is") << 0 << u"\u00c9to"_s << 4;
        QTest::newRow("an accent alone") << 1 << u"\u0301"_s << 1;
        QTest::newRow("a dotted capital") << 0 << u"iz"_s << 5;
        QTest::newRow("none") << 2 << u"x"_s << 2;
        QTest::newRow("none any more") << 2 << u"bx"_s << 3;
        QTest::newRow("a current one that is gone") << 99 << u"be"_s << 0;
    }

    void findsWhatBeginsSo()
    {
        QFETCH(int, current);
        QFETCH(QString, typed);
        TypeAhead typeAhead;
        typeAhead.setProperty("pause", longest);
        for (const QChar letter : typed)
            current = find(typeAhead, {&letter, 1}, current);
        QTEST(current, "found");
    }

    void leavesOtherKeysAlone_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
        const Qt::KeyboardModifiers none;
        QTest::newRow("an arrow") << QString() << none;
        QTest::newRow("Escape") << u"\x1b"_s << none;
        QTest::newRow("Return") << u"\r"_s << none;
        QTest::newRow("Delete") << u"\x7f"_s << none;
        QTest::newRow("Ctrl") << u"b"_s << Qt::KeyboardModifiers(Qt::ControlModifier);
        QTest::newRow("Alt") << u"b"_s << Qt::KeyboardModifiers(Qt::AltModifier);
        QTest::newRow("Meta") << u"b"_s << Qt::KeyboardModifiers(Qt::MetaModifier);
        QTest::newRow("a space first") << u" "_s << none;
    }

    void leavesOtherKeysAlone()
    {
        QFETCH(QString, text);
        QFETCH(Qt::KeyboardModifiers, modifiers);
        TypeAhead typeAhead;
        QCOMPARE(
            typeAhead.find(text, modifiers.toInt(), 0, 1, [](int) { return u" b\x1b\r\x7f"_s; }),
            -1);
    }

    void takesShiftAndTheKeypad()
    {
        TypeAhead typeAhead;
        QCOMPARE(typeAhead.find(u"B"_s, Qt::ShiftModifier | Qt::KeypadModifier, -1, 1,
                                [](int) { return u"b"_s; }),
                 0);
    }

    void leavesASpaceAloneThatFindsNothing()
    {
        TypeAhead typeAhead;
        QCOMPARE(find(typeAhead, u"i", 0), 5);
        QCOMPARE(find(typeAhead, u" ", 5), -1);
        QCOMPARE(find(typeAhead, u"b", 5), 0);
    }

    void beginsAnewFromAnotherEntry()
    {
        TypeAhead typeAhead;
        QCOMPARE(find(typeAhead, u"b", -1), 0);
        QCOMPARE(find(typeAhead, u"e", 1), 2); // as after an arrow key
    }

    void beginsAnewAfterAPause()
    {
        TypeAhead typeAhead;
        typeAhead.setProperty("pause", longest);
        QCOMPARE(find(typeAhead, u"b", -1), 0);
        QCOMPARE(find(typeAhead, u"a", 0), 1);
        typeAhead.forget();
        QCOMPARE(find(typeAhead, u"e", 0), 2);
        typeAhead.setProperty("pause", 0);
        QCOMPARE(find(typeAhead, u"t", 2), 2); // "et", and the pause begins
        QCOMPARE(find(typeAhead, u" ", 2), -1);
        QCOMPARE(find(typeAhead, u"i", 2), 5);
    }

    void asksAFunctionOfQml()
    {
        QJSEngine engine;
        TypeAhead typeAhead;
        const QJSValue textAt = engine.evaluate(u"(index => ['one', 'two', 'three'][index])"_s);
        QCOMPARE(typeAhead.find(u"t"_s, 0, 1, 3, textAt), 2);
    }

    void searchesAModel()
    {
        TypeAhead typeAhead;
        QStringListModel model(names);
        QCOMPARE(typeAhead.findRow(u"b"_s, 0, 1, &model), 3);
        model.setStringList({});
        QCOMPARE(typeAhead.findRow(u"b"_s, 0, -1, &model), -1);
    }
};

QUORVALE_TEST(TypeAheadTest)

#include "typeahead_test.moc"
