// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>

#include <optional>

namespace quorvale {

/// What is known of a source before its conversion.
struct MediaInfo
{
    /// Length in seconds; 0 when unknown.
    double duration = 0.0;

    /// Video bitrate in bits per second; none when unknown.
    std::optional<qint64> videoBitrate;
};

/// Reads ffprobe's JSON description (ffprobe manual, section "json, j"). None when it is not such
/// a description or states no duration.
///
/// The video bitrate is the first video stream's own, or else the container's less the first audio
/// stream's, which counts as 192,000 when unstated; that difference is at least 250,000.
std::optional<MediaInfo> mediaInfoFromJson(const QByteArray &json);

/// Reads the duration from what ffmpeg prints about its input: the first "Duration: 01:02:03.50".
/// The banner gives no bitrate of the video alone, so there is never one here.
MediaInfo mediaInfoFromBanner(const QByteArray &banner);

} // namespace quorvale
