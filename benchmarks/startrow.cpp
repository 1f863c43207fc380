// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "processrun.h"
#include "rows.h"
#include "statistics.h"

using namespace Qt::StringLiterals;

namespace quorvale::bench {

void measureStart(const Report &report)
{
    const auto timeOf = [](const QString &which) {
        return runTask({u"show-first-frame"_s, which}).wall;
    };
    const auto memoryOf = [](const QString &which) {
        return runTask({u"idle"_s, which}).output.toDouble();
    };
    QList<double> seconds;
    const double time = medianRatio(
        9,
        [&] {
            seconds << timeOf(u"program"_s);
            return seconds.last();
        },
        [&] { return timeOf(u"bare"_s); });
    const QString against = u"a Qt Quick window with one text and one button"_s;
    report({u"start to the first frame"_s, against, u"≤ 1.5"_s,
            u"%1 (%2 ms)"_s.arg(time, 0, 'f', 2).arg(1000 * median(seconds), 0, 'f', 0)});
    QList<double> bytes;
    const double memory = medianRatio(
        3,
        [&] {
            bytes << memoryOf(u"program"_s);
            return bytes.last();
        },
        [&] { return memoryOf(u"bare"_s); });
    report({u"resident memory when idle"_s, against, u"≤ 1.25"_s,
            u"%1 (%2 MiB)"_s.arg(memory, 0, 'f', 2).arg(median(bytes) / 1048576, 0, 'f', 0)});
}

} // namespace quorvale::bench
