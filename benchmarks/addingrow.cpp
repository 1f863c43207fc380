// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "processrun.h"
#include "rows.h"
#include "statistics.h"

#include <QDir>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace quorvale::bench {

namespace {

// Fills the folder with a tree of 100,000 files, of which every `nth` is a video.
void makeTree(const QString &folder, int nth)
{
    for (int i = 0; i < 100'000; ++i) {
        if (i % 200 == 0 && !QDir(folder).mkdir(QString::number(i / 200)))
            qFatal("Cannot make a folder");
        // In an order that is not that of the names, as on a disk.
        QFile file(QDir(folder).filePath(u"%1/Clip %2.%3"_s.arg(i / 200)
                                             .arg(i * 7919 % 100'000)
                                             .arg(i % nth == 0 ? u"mp4"_s : u"txt"_s)));
        if (!file.open(QIODevice::WriteOnly))
            qFatal("Cannot make a file");
    }
}

double ratioForTree(int nth)
{
    const QTemporaryDir folder;
    makeTree(folder.path(), nth);
    return medianRatio(
        9,
        [&] {
            return runTask({u"add-folder"_s, folder.path()}).wall;
        },
        [&] {
            return runProcess({u"/bin/sh"_s, u"-c"_s, u"find \"$0\" -type f | sort -V >/dev/null"_s,
                               folder.path()})
                .wall;
        });
}

} // namespace

QList<Row> measureAdding()
{
    const QString against = u"<code>find … &#124; sort -V</code>"_s;
    return {{u"a tree of 100,000 files added, all of them videos (whole processes)"_s, against,
             u"≤ 0.8"_s, QString::number(ratioForTree(1), 'f', 2)},
            {u"the same, half of them videos"_s, against, u"≤ 0.5"_s,
             QString::number(ratioForTree(2), 'f', 2)}};
}

} // namespace quorvale::bench
