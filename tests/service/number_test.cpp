// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "service/number.h"
#include "support/testclass.h"

#include <QTest>

#include <limits>

using namespace quorvale;

class NumberTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void numbers_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<double>("value");
        QTest::newRow("whole") << QByteArray("10") << 10.0;
        QTest::newRow("fraction") << QByteArray("10.500000") << 10.5;
        QTest::newRow("negative") << QByteArray("-0.25") << -0.25;
        QTest::newRow("plus") << QByteArray("+3") << 3.0;
        QTest::newRow("exponent") << QByteArray("1.5e3") << 1500.0;
        QTest::newRow("no integer part") << QByteArray(".5") << 0.5;
        QTest::newRow("smallest 64-bit integer")
            << QByteArray("-9223372036854775808") << -9223372036854775808.0;
    }
    void numbers()
    {
        QFETCH(const QByteArray, text);
        QFETCH(const double, value);
        QVERIFY(parseNumber(text) == value);
    }

    void notNumbers_data()
    {
        QTest::addColumn<QByteArray>("text");
        for (const char *text :
             {"",      "N/A",  " 1",  "1 ",   "1\n", "\t1",      "1s",    "1,5",
              "1,000", "0x10", "inf", "-inf", "nan", "infinity", "1e400", "-1e400",
              "1e",    "e5",   ".",   "+",    "--1", "1 2",      "1.2.3", "\xd9\xa1"})
            QTest::newRow(*text ? text : "empty") << QByteArray(text);
        QTest::newRow("embedded NUL") << QByteArray("1\0", 2);
    }
    void notNumbers()
    {
        QFETCH(const QByteArray, text);
        QVERIFY(!parseNumber(text));
    }

    void integers_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<qint64>("value");
        using Limits = std::numeric_limits<qint64>;
        QTest::newRow("ordinary") << QByteArray("1000000") << qint64(1000000);
        QTest::newRow("plus") << QByteArray("+7") << qint64(7);
        QTest::newRow("minus") << QByteArray("-7") << qint64(-7);
        QTest::newRow("leading zeros, not octal") << QByteArray("0010") << qint64(10);
        QTest::newRow("largest") << QByteArray("9223372036854775807") << Limits::max();
        QTest::newRow("smallest") << QByteArray("-9223372036854775808") << Limits::min();
    }
    void integers()
    {
        QFETCH(const QByteArray, text);
        QFETCH(const qint64, value);
        QVERIFY(parseInteger(text) == value);
    }

    void notIntegers_data()
    {
        QTest::addColumn<QByteArray>("text");
        for (const char *text :
             {"", "N/A", " 1", "1 ", "1.0", "1e3", "0x10", "+-1", "-+1", "++1", "+", "-", "1-",
              "1,000", "9223372036854775808", "-9223372036854775809"})
            QTest::newRow(*text ? text : "empty") << QByteArray(text);
    }
    void notIntegers()
    {
        QFETCH(const QByteArray, text);
        QVERIFY(!parseInteger(text));
    }
};

QUORVALE_TEST(NumberTest)
#include "number_test.moc"
