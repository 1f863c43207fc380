// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "videofile.h"

#include "childofthetest.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace quorvale::test {

namespace {

// What the tool writes; none, with a warning, when it fails.
std::optional<QByteArray> run(const QString &tool, const QStringList &arguments)
{
    ChildOfTheTest process;
    process.start(tool, arguments);
    if (!process.waitForStarted(-1) || !process.waitForFinished(-1)
        || process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0) {
        qWarning("%s %s: %s %s", qPrintable(tool), qPrintable(arguments.join(u' ')),
                 qPrintable(process.errorString()), process.readAllStandardError().constData());
        return std::nullopt;
    }
    return process.readAllStandardOutput();
}

QString picture(double seconds)
{
    return u"testsrc2=size=320x180:rate=25:duration=%1"_s.arg(seconds);
}

} // namespace

std::optional<VideoFile> VideoFile::read(const QString &path)
{
    const auto output = run(u"ffprobe"_s, {u"-v"_s, u"error"_s, u"-of"_s, u"json"_s,
                                           u"-show_format"_s, u"-show_streams"_s, path});
    if (!output)
        return std::nullopt;
    const auto description = QJsonDocument::fromJson(*output);
    VideoFile file;
    file.duration = description[u"format"_s][u"duration"_s].toString().toDouble();
    for (const auto &stream : description[u"streams"_s].toArray()) {
        const QString codec = stream.toObject()[u"codec_name"_s].toString();
        const bool isVideo = stream.toObject()[u"codec_type"_s] == u"video"_s;
        (isVideo ? file.videoCodec : file.audioCodec) = codec;
        if (isVideo)
            file.profile = stream.toObject()[u"profile"_s].toString();
    }
    return file.videoCodec.isEmpty() ? std::nullopt : std::optional(file);
}

bool makeVideo(const QString &path, const QStringList &encoders, double seconds)
{
    QStringList arguments{u"-v"_s, u"error"_s, u"-f"_s, u"lavfi"_s, u"-i"_s, picture(seconds)};
    arguments << u"-f"_s << u"lavfi"_s << u"-i"_s << u"sine=duration=%1"_s.arg(seconds);
    arguments += encoders;
    arguments << path;
    return run(u"ffmpeg"_s, arguments).has_value();
}

bool makeLongVideo(const QString &path, int seconds)
{
    const QTemporaryDir folder;
    const QString second = folder.filePath(u"second.mp4"_s);
    return run(u"ffmpeg"_s, {u"-v"_s, u"error"_s, u"-f"_s, u"lavfi"_s, u"-i"_s, picture(1),
                             u"-c:v"_s, u"libx264"_s, second})
           && run(u"ffmpeg"_s,
                  {u"-v"_s, u"error"_s, u"-stream_loop"_s, QString::number(seconds - 1), u"-i"_s,
                   second, u"-c"_s, u"copy"_s, path});
}

} // namespace quorvale::test
