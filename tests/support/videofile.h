// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <optional>

namespace quorvale::test {

/// Makes a video of one small moving picture that goes on for so many seconds, in next to no time,
/// by ffmpeg. False, with a warning, when that fails.
bool makeVideo(const QString &path, int seconds);

/// How many seconds the video in the file goes on, as ffprobe reads it. None, with a
/// warning, when it cannot be read as a video.
std::optional<double> videoDuration(const QString &path);

} // namespace quorvale::test
