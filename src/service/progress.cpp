// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "progress.h"

#include "number.h"

#include <algorithm>

namespace quorvale {

std::optional<double> progressTime(QByteArrayView line)
{
    // In spite of its name this value is in microseconds.
    constexpr QByteArrayView timeKey = "out_time_ms=";
    constexpr double microsecondsPerSecond = 1'000'000.0;

    if (!line.startsWith(timeKey))
        return std::nullopt;
    const auto time = parseNumber(line.sliced(timeKey.size()));
    return time ? std::optional(*time / microsecondsPerSecond) : std::nullopt;
}

std::optional<double> progressFraction(QByteArrayView line, double duration)
{
    if (const auto time = progressTime(line); time && duration > 0.0)
        return std::min(*time / duration, 1.0);
    if (line == QByteArrayView("progress=end"))
        return 1.0;
    return std::nullopt;
}

} // namespace quorvale
