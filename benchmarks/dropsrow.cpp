// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "processrun.h"
#include "rows.h"
#include "statistics.h"

using namespace Qt::StringLiterals;

namespace quorvale::bench {

void measureDrops(const Report &report)
{
    const auto drop = [](int count) {
        return runTask({u"drop-files"_s, QString::number(count)}).output.toDouble();
    };
    const double ratio = medianRatio(
        9, [&] { return drop(10'000); }, [&] { return drop(1000); });
    report({u"10,000 files dropped one by one"_s, u"1,000 of them"_s, u"≤ 12"_s,
            QString::number(ratio, 'f', 1)});
}

} // namespace quorvale::bench
