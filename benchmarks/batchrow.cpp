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

namespace {

// A tool that writes down how it is called, as a line of a shell script, and then does it.
void writeRecorder(const QString &path, const QString &tool, const QString &script)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        qFatal("Cannot write %s", qPrintable(path));
    file.write(uR"(#!/bin/sh
{
    printf %1
    for argument; do printf " '%s'" "$argument"; done
    echo " </dev/null >/dev/null 2>&1"
} >>'%2'
exec %1 "$@"
)"_s.arg(tool, script)
                   .toLocal8Bit());
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

void empty(const QString &folder)
{
    if (!QDir(folder).removeRecursively() || !QDir().mkdir(folder))
        qFatal("Cannot empty %s", qPrintable(folder));
}

} // namespace

void measureBatch(const Report &report)
{
    const QTemporaryDir folder;
    const QString sources = folder.filePath(u"sources"_s);
    const QString outputs = folder.filePath(u"outputs"_s);
    const QString recorders = folder.filePath(u"recorders"_s);
    const QString script = folder.filePath(u"loop.sh"_s);
    for (const QString &path : {sources, outputs, recorders}) {
        if (!QDir().mkdir(path))
            qFatal("Cannot make %s", qPrintable(path));
    }
    makeClips(sources, 40, 2, u"640x360"_s);
    for (const QString &tool : {u"ffmpeg"_s, u"ffprobe"_s})
        writeRecorder(recorders + u'/' + tool, u"/usr/bin/"_s + tool, script);
    runTask({u"convert-folder"_s, sources, outputs, recorders + u'/'});

    QList<double> shares;
    const auto program = [&] {
        empty(outputs);
        const ProcessRun run = runTask({u"convert-folder"_s, sources, outputs, u"/usr/bin/"_s});
        const QList<QByteArray> figures = run.output.split('\n');
        shares << figures.value(0).toDouble() / figures.value(1).toDouble();
        return run.wall;
    };
    const auto loop = [&] {
        empty(outputs);
        return runProcess({u"/bin/sh"_s, script}).wall;
    };
    const double ratio = medianRatio(5, program, loop);
    report({u"40 clips of 2 s converted without a window: time"_s,
            u"a shell loop of the same command lines"_s, u"≤ 1.02"_s,
            QString::number(ratio, 'f', 3)});
    report({u"the same: the program's own processor time"_s, u"that of the tools"_s, u"≤ 1 %"_s,
            u"%1 %"_s.arg(100 * median(shares), 0, 'f', 2)});
}

} // namespace quorvale::bench
