// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "processrun.h"
#include "rows.h"
#include "statistics.h"
#include "support/standintools.h"

using namespace Qt::StringLiterals;

namespace quorvale::bench {

void measureProgressStream(const Report &report)
{
    test::StandInTools tools;
    QByteArray lines;
    for (int i = 0; i < 100; ++i)
        lines += "out_time_ms=" + QByteArray::number(50'000 * i) + '\n';
    tools.setScript(u"ffmpeg"_s, test::Script().outRepeatedly(10'000, lines));
    QList<double> seconds;
    const double ratio = medianRatio(
        5,
        [&] {
            seconds << runTask({u"read-progress"_s, tools.folder()}).wall;
            return seconds.last();
        },
        [&] {
            return runProcess({u"/bin/sh"_s, u"-c"_s, u"\"$0\" | cat >/dev/null"_s,
                               tools.path(u"ffmpeg"_s)})
                .wall;
        });
    report({u"a million lines of progress read"_s, u"<code>cat</code> of the same stream"_s, u"–"_s,
            u"%1 (%2 s)"_s.arg(ratio, 0, 'f', 0).arg(median(seconds), 0, 'f', 2)});
}

} // namespace quorvale::bench
