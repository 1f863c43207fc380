// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "require.h"
#include "service/mediainfo.h"

#include <cmath>
#include <cstddef>
#include <cstdint>

using namespace quorvale;

// ffprobe's description of a source: whatever it is, reading it ends, and what is read is a number.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray json(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    const auto info = mediaInfoFromJson(json);
    if (!info)
        return 0;
    require(std::isfinite(info->duration));
    const auto again = mediaInfoFromJson(json);
    require(again && again->duration == info->duration);
    require(again->videoBitrate == info->videoBitrate);
    // White space around the description changes nothing.
    const auto spaced = mediaInfoFromJson('\n' + json + ' ');
    require(spaced && spaced->videoBitrate == info->videoBitrate);
    return 0;
}
