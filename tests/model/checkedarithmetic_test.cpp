// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "model/checkedarithmetic.h"

#include "support/fatal.h"
#include "support/testclass.h"

#include <QTest>

#include <cmath>
#include <limits>

using namespace quorvale;
using namespace quorvale::test;

namespace {

constexpr qint64 least = std::numeric_limits<qint64>::min();
constexpr qint64 most = std::numeric_limits<qint64>::max();
constexpr double twoTo63 = 9223372036854775808.0;

} // namespace

class CheckedArithmeticTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void truncatesTowardZero()
    {
        QCOMPARE(truncatedToInteger(2.9), 2);
        QCOMPARE(truncatedToInteger(-2.9), -2);
    }

    void roundsHalvesAwayFromZero()
    {
        QCOMPARE(roundedToInteger(76.5), 77);
        QCOMPARE(roundedToInteger(-76.5), -77);
        // The next number below a half: adding a half before truncating would lift it.
        QCOMPARE(roundedToInteger(0.49999999999999994), 0);
    }

    void numbersThatJustFitAreKept()
    {
        const double below = std::nextafter(twoTo63, 0.0);
        QCOMPARE(truncatedToInteger(below), 9223372036854774784);
        QCOMPARE(roundedToInteger(below), 9223372036854774784);
        QCOMPARE(truncatedToInteger(-twoTo63), least);
        QCOMPARE(roundedToInteger(-twoTo63), least);
        QCOMPARE(checkedProduct(most / 2, 2), most - 1);
        QCOMPARE(checkedSum(most - 1, 1), most);
        QCOMPARE(checkedSum(least + 1, -1), least);
    }

    void numbersThatDoNotFitStopTheProgram_data()
    {
        QTest::addColumn<double>("number");
        QTest::newRow("2^63") << twoTo63;
        QTest::newRow("below -2^63") << std::nextafter(-twoTo63, -2 * twoTo63);
        QTest::newRow("infinity") << std::numeric_limits<double>::infinity();
        QTest::newRow("negative infinity") << -std::numeric_limits<double>::infinity();
        QTest::newRow("no number") << std::numeric_limits<double>::quiet_NaN();
    }
    void numbersThatDoNotFitStopTheProgram()
    {
        QFETCH(const double, number);
        QVERIFY(stopsTheProgram([&] { truncatedToInteger(number); }));
        QVERIFY(stopsTheProgram([&] { roundedToInteger(number); }));
    }

    void resultsThatDoNotFitStopTheProgram()
    {
        QVERIFY(stopsTheProgram([] { checkedProduct(most / 2 + 1, 2); }));
        QVERIFY(stopsTheProgram([] { checkedProduct(least, -1); }));
        QVERIFY(stopsTheProgram([] { checkedSum(most, 1); }));
        QVERIFY(stopsTheProgram([] { checkedSum(least, -1); }));
    }
};

QUORVALE_TEST(CheckedArithmeticTest)
#include "checkedarithmetic_test.moc"
