// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "clips.h"

#include "filetree.h"
#include "toolrun.h"

#include <map>

using namespace Qt::StringLiterals;

namespace quorvale::test {

namespace {

const std::map<QString, QString> &encoders()
{
    static const QString h264 = u"-c:v libx264 -preset ultrafast -pix_fmt "_s;
    static const QString webm = u"-c:v libvpx-vp9 -deadline realtime -cpu-used 8"_s;
    static const std::map<QString, QString> encoders{
        {u"av1.mkv"_s, u"-c:v libsvtav1 -preset 12 -c:a libopus"_s},
        {u"vp9.webm"_s, webm + u" -c:a libvorbis"_s},
        {u"h264.mp4"_s, h264 + u"yuv420p -c:a aac"_s},
        {u"hevc.mov"_s, u"-c:v libx265 -preset ultrafast -tag:v hvc1 -c:a aac"_s},
        {u"mpeg2.ts"_s, u"-c:v mpeg2video -c:a mp2"_s},
        {u"bluray.m2ts"_s, h264 + u"yuv420p -c:a ac3"_s},
        {u"camera.mts"_s, h264 + u"yuv422p -c:a ac3"_s},
        {u"flash.flv"_s, h264 + u"yuv420p -c:a aac"_s},
        {u"mpeg4.avi"_s, u"-c:v mpeg4 -c:a libmp3lame"_s},
        {u"store.m4v"_s, h264 + u"yuv420p -c:a aac"_s},
        {u"fullcolour.mkv"_s, h264 + u"yuv444p -c:a flac"_s},
        {u"silent.mp4"_s, h264 + u"yuv420p -an"_s},
        {u"undated.mkv"_s, h264 + u"yuv420p -c:a aac -f matroska"_s},
    };
    return encoders;
}

QByteArray successful(const QStringList &arguments)
{
    const ToolRun run = runFFmpeg(arguments);
    if (!run.succeeded)
        qFatal("Cannot make a clip with %s: %s", qPrintable(arguments.join(u' ')),
               run.errors.constData());
    return run.output;
}

} // namespace

QStringList clipNames()
{
    QStringList names;
    for (const auto &[name, encoder] : encoders())
        names << name;
    return names;
}

QString makeClip(const QString &name, const QDir &folder)
{
    // Limited at their sources: a limit on the output would be written down as its length even
    // where the container is left without one.
    const QString seconds = QString::number(clipSeconds);
    QStringList arguments{
        u"-f"_s, u"lavfi"_s, u"-i"_s, u"testsrc2=size=160x120:rate=25:duration="_s + seconds,
        u"-f"_s, u"lavfi"_s, u"-i"_s, u"sine=duration="_s + seconds};
    arguments += encoders().at(name).split(u' ');
    arguments << u"-metadata"_s << u"title="_s + name;
    const QString path = folder.filePath(name);
    if (name == "undated.mkv"_L1) {
        // Into a pipe ffmpeg cannot go back to fill in the length.
        write(path, successful(arguments << u"pipe:1"_s));
    } else {
        successful(arguments << path);
    }
    return path;
}

void repeatClip(const QString &path, int times, const QString &copy)
{
    successful(
        {u"-stream_loop"_s, QString::number(times - 1), u"-i"_s, path, u"-c"_s, u"copy"_s, copy});
}

void retitleClip(const QString &path, const QString &title, const QString &copy)
{
    successful({u"-i"_s, path, u"-c"_s, u"copy"_s, u"-metadata"_s, u"title="_s + title, copy});
}

} // namespace quorvale::test
