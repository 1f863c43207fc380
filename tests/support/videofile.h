// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace quorvale::test {

/// What ffprobe reads in a video file.
struct VideoFile
{
    QString videoCodec;
    QString profile;    ///< in ffprobe's words
    QString audioCodec; ///< empty without audio
    double duration = 0;

    /// None when it cannot be read as a video.
    static std::optional<VideoFile> read(const QString &path);
};

/// Makes a short video with sound by ffmpeg. False, with a warning, when that fails.
bool makeVideo(const QString &path, const QStringList &encoders, double seconds);

/// Makes a video of one small moving picture that goes on for the time, in next to no time.
bool makeLongVideo(const QString &path, int seconds);

} // namespace quorvale::test
