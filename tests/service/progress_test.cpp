// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "service/progress.h"
#include "support/testclass.h"

#include <QTest>

using namespace quorvale;

using Fraction = std::optional<double>;

class ProgressTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fractions_data()
    {
        QTest::addColumn<QByteArray>("line");
        QTest::addColumn<double>("duration");
        QTest::addColumn<Fraction>("fraction");
        QTest::newRow("microseconds of seconds")
            << QByteArray("out_time_ms=2500000") << 10.0 << Fraction(0.25);
        QTest::newRow("the whole") << QByteArray("out_time_ms=10000000") << 10.0 << Fraction(1.0);
        QTest::newRow("never above one")
            << QByteArray("out_time_ms=12500000") << 10.0 << Fraction(1.0);
        QTest::newRow("negative passes through")
            << QByteArray("out_time_ms=-5000000") << 10.0 << Fraction(-0.5);
        QTest::newRow("smallest 64-bit integer") << QByteArray("out_time_ms=-9223372036854775808")
                                                 << 1.0 << Fraction(-9223372036854.775808);
        QTest::newRow("not available") << QByteArray("out_time_ms=N/A") << 10.0 << Fraction();
        QTest::newRow("empty value") << QByteArray("out_time_ms=") << 10.0 << Fraction();
        QTest::newRow("trailing space") << QByteArray("out_time_ms=1 ") << 10.0 << Fraction();
        QTest::newRow("leading space") << QByteArray("out_time_ms= 1") << 10.0 << Fraction();
        QTest::newRow("beyond a double") << QByteArray("out_time_ms=1e400") << 10.0 << Fraction();
        QTest::newRow("not a number") << QByteArray("out_time_ms=nan") << 10.0 << Fraction();
        QTest::newRow("unknown duration") << QByteArray("out_time_ms=2500000") << 0.0 << Fraction();
        QTest::newRow("negative duration")
            << QByteArray("out_time_ms=2500000") << -1.0 << Fraction();
        QTest::newRow("end") << QByteArray("progress=end") << 10.0 << Fraction(1.0);
        QTest::newRow("end without duration") << QByteArray("progress=end") << 0.0 << Fraction(1.0);
        QTest::newRow("continue") << QByteArray("progress=continue") << 10.0 << Fraction();
        QTest::newRow("not exactly the end") << QByteArray("progress=end ") << 10.0 << Fraction();
        QTest::newRow("another time") << QByteArray("out_time_us=2500000") << 10.0 << Fraction();
        QTest::newRow("prefix not at the beginning")
            << QByteArray(" out_time_ms=2500000") << 10.0 << Fraction();
        QTest::newRow("capitals") << QByteArray("OUT_TIME_MS=2500000") << 10.0 << Fraction();
        QTest::newRow("empty line") << QByteArray() << 10.0 << Fraction();
    }
    void fractions()
    {
        QFETCH(const QByteArray, line);
        QFETCH(const double, duration);
        QFETCH(const Fraction, fraction);
        QVERIFY(progressFraction(line, duration) == fraction);
    }
};

QUORVALE_TEST(ProgressTest)
#include "progress_test.moc"
