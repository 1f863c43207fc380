// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "videofile.h"

#include "childofthetest.h"

#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace quorvale::test {

bool makeVideo(const QString &path, int seconds)
{
    const QTemporaryDir folder;
    const QString second = folder.filePath(u"second.mp4"_s);
    const QStringList quietly{u"-v"_s, u"error"_s};
    const QString loops = QString::number(seconds - 1);
    return ChildOfTheTest().run(u"ffmpeg"_s,
                                quietly
                                    + QStringList{u"-f"_s, u"lavfi"_s, u"-i"_s,
                                                  u"testsrc2=size=320x180:rate=25:duration=1"_s,
                                                  u"-c:v"_s, u"libx264"_s, second})
           && ChildOfTheTest().run(u"ffmpeg"_s,
                                   quietly
                                       + QStringList{u"-stream_loop"_s, loops, u"-i"_s, second,
                                                     u"-c"_s, u"copy"_s, path});
}

std::optional<double> videoDuration(const QString &path)
{
    const auto output = ChildOfTheTest().run(
        u"ffprobe"_s, {u"-v"_s, u"error"_s, u"-of"_s, u"csv=p=0"_s, u"-select_streams"_s, u"v"_s,
                       u"-show_entries"_s, u"stream=duration"_s, path});
    bool isNumber = false;
    const double duration = output.value_or(QByteArray()).trimmed().toDouble(&isNumber);
    return isNumber ? std::optional(duration) : std::nullopt;
}

} // namespace quorvale::test
