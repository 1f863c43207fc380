// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "processrun.h"
#include "rows.h"
#include "statistics.h"

using namespace Qt::StringLiterals;

namespace quorvale::bench {

void measureLongList(const Report &report)
{
    QList<double> bytes;
    QList<double> frames;
    for (int i = 0; i < 3; ++i) {
        const QList<QByteArray> figures =
            runTask({u"scroll-list"_s, u"100000"_s}).output.split('\n');
        bytes << figures.value(0).toDouble();
        frames << figures.value(1).toDouble();
    }
    report({u"100,000 jobs: memory of a job"_s, u"an empty list"_s, u"≤ 1 KiB"_s,
            u"%1 bytes"_s.arg(median(bytes), 0, 'f', 0)});
    report({u"100,000 jobs: longest frame while the list is scrolled from end to end"_s,
            u"software renderer"_s, u"≤ 16.7 ms"_s,
            u"%1 ms"_s.arg(1000 * median(frames), 0, 'f', 1)});
}

} // namespace quorvale::bench
