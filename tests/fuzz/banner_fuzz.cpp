// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "require.h"
#include "service/mediainfo.h"

#include <cstddef>
#include <cstdint>

using namespace quorvale;

// What ffmpeg prints about a source: reading it ends, and no time is negative or no number.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray banner(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    const MediaInfo info = mediaInfoFromBanner(banner);
    require(info.duration >= 0.0);
    require(!info.videoBitrate);
    require(info.duration == 0.0 || banner.contains("Duration: "));
    // What comes behind the first line with a time does not count.
    if (info.duration > 0.0)
        require(mediaInfoFromBanner(banner + "\nDuration: 09:08:07").duration == info.duration);
    return 0;
}
