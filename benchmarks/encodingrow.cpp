// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "clips.h"
#include "processrun.h"
#include "rows.h"
#include "statistics.h"

#include <QDir>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace quorvale::bench {

void measureEncoding(const Report &report)
{
    const QTemporaryDir folder;
    const QString sources = folder.filePath(u"sources"_s);
    const QString outputs = folder.filePath(u"outputs"_s);
    if (!QDir().mkdir(sources))
        qFatal("Cannot make a folder");
    makeClips(sources, 1, 20, u"1920x1080"_s);
    QList<double> shares;
    for (int i = 0; i < 3; ++i) {
        const QList<QByteArray> figures =
            runTask({u"convert-with-window"_s, sources, outputs}).output.split('\n');
        shares << figures.value(0).toDouble() / figures.value(1).toDouble();
    }
    report({u"the program's own processor time while ffmpeg encodes, with its window shown"_s,
            u"one processor"_s, u"≤ 1 %"_s, u"%1 %"_s.arg(100 * median(shares), 0, 'f', 2)});
}

} // namespace quorvale::bench
