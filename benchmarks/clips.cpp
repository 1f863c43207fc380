// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "clips.h"

#include "processrun.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace quorvale::bench {

void makeClips(const QString &folder, int count, int seconds, const QString &size)
{
    const QDir target(folder);
    const QString first = target.filePath(u"clip 1.mp4"_s);
    runProcess({u"/usr/bin/ffmpeg"_s, u"-v"_s, u"error"_s, u"-f"_s, u"lavfi"_s, u"-i"_s,
                u"testsrc2=duration=%1:size=%2"_s.arg(seconds).arg(size), u"-c:v"_s, u"libx264"_s,
                u"-preset"_s, u"ultrafast"_s, first});
    for (int i = 2; i <= count; ++i) {
        if (!QFile::copy(first, target.filePath(u"clip %1.mp4"_s.arg(i))))
            qFatal("Cannot make the clips");
    }
}

} // namespace quorvale::bench
