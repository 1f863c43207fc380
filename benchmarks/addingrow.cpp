// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "processrun.h"
#include "rows.h"
#include "statistics.h"

#include <QDir>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace quorvale::bench {

QList<Row> measureAdding()
{
    const QTemporaryDir folder;
    for (int i = 0; i < 100'000; ++i) {
        if (i % 200 == 0 && !QDir(folder.path()).mkdir(QString::number(i / 200)))
            qFatal("Cannot make a folder");
        // In an order that is not that of the names, as on a disk.
        QFile file(folder.filePath(u"%1/Clip %2.%3"_s.arg(i / 200)
                                       .arg(i * 7919 % 100'000)
                                       .arg(i % 2 == 0 ? u"mp4"_s : u"txt"_s)));
        if (!file.open(QIODevice::WriteOnly))
            qFatal("Cannot make a file");
    }
    const double ratio = medianRatio(
        9,
        [&] {
            return runTask({u"add-folder"_s, folder.path()}).wall;
        },
        [&] {
            return runProcess({u"/bin/sh"_s, u"-c"_s, u"find \"$0\" -type f | sort -V >/dev/null"_s,
                               folder.path()})
                .wall;
        });
    return {{u"a tree of 100,000 files added, half of them videos (whole processes)"_s,
             u"<code>find … &#124; sort -V</code>"_s, u"≤ 1.0"_s, QString::number(ratio, 'f', 2)}};
}

} // namespace quorvale::bench
