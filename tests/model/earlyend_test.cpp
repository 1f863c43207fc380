// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "model/earlyend.h"
#include "support/testclass.h"

#include <QTest>

#include <limits>

using namespace quorvale;
using namespace Qt::StringLiterals;

class EarlyEndTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isSaidInASentence_data()
    {
        QTest::addColumn<EarlyEnd>("end");
        QTest::addColumn<QString>("times");
        const auto row = [](double reached, double duration, const QString &times) {
            QTest::addRow("%g of %g", reached, duration) << EarlyEnd{reached, duration} << times;
        };
        row(6.04, 20.02, u": 0:06 of 0:20"_s);
        row(18.99, 20.0, u": 0:18 of 0:20"_s);
        row(59.99, 63.5, u": 0:59 of 1:04"_s);
        row(599.0, 3599.9, u": 9:59 of 1:00:00"_s);
        row(3600.0, 36'000.0, u": 1:00:00 of 10:00:00"_s);
        row(0.0, 0.6, u": 0:00 of 0:01"_s);
        row(-1e300, 1.0, u": 0:00 of 0:01"_s);
        row(1.2, 1.4, {});
        row(0.1, 0.2, {});
        row(6.0, std::numeric_limits<double>::max(), u": 0:06 of 277777:46:40"_s);
    }
    void isSaidInASentence()
    {
        QFETCH(const EarlyEnd, end);
        QFETCH(const QString, times);
        QCOMPARE(remark(end), u"The source ends early%1."_s.arg(times));
    }
};

QUORVALE_TEST(EarlyEndTest)
#include "earlyend_test.moc"
