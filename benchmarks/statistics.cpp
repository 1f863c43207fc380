// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "statistics.h"

#include <algorithm>

namespace quorvale::bench {

double median(QList<double> values)
{
    std::sort(values.begin(), values.end());
    const qsizetype middle = values.size() / 2;
    return values.size() % 2 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

double medianRatio(int pairs, const std::function<double()> &first,
                   const std::function<double()> &second)
{
    first();
    second();
    QList<double> ratios;
    for (int i = 0; i < pairs; ++i) {
        const double numerator = first();
        ratios << numerator / second();
    }
    return median(ratios);
}

} // namespace quorvale::bench
