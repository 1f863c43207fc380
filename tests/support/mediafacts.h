// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QList>
#include <QString>

#include <optional>

namespace quorvale::test {

/// What the machine's own ffprobe says of a video file; what it does not say is empty.
struct MediaFacts
{
    QString format;     ///< ffmpeg's names for the container
    QString majorBrand; ///< of the MP4 family: "qt  ", "isom", ...
    QString title;
    std::optional<double> duration; ///< in seconds

    // The first stream of each kind
    QString videoCodec;
    QString videoTag;
    QString videoProfile;
    QString pixelFormat;
    QString audioCodec;
};

/// Reads the facts of the file at `path`. Ends the test program when there is no ffprobe; all facts
/// are empty when the file is no media file.
MediaFacts mediaFacts(const QString &path);

/// How many packets each stream of the file at `path` has, in the streams' order; none when it is
/// no media file. Reads it to its end.
QList<int> packetCounts(const QString &path);

} // namespace quorvale::test
