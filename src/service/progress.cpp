// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "progress.h"

#include "number.h"

#include <algorithm>

namespace quorvale {

std::optional<double> progressFraction(QByteArrayView line, double duration)
{
    // In spite of its name this value is in microseconds.
    constexpr QByteArrayView timeKey = "out_time_ms=";
    constexpr double microsecondsPerSecond = 1'000'000.0;

    if (line.startsWith(timeKey) && duration > 0.0) {
        if (const auto time = parseNumber(line.sliced(timeKey.size())))
            return std::min(*time / microsecondsPerSecond / duration, 1.0);
    }
    if (line == QByteArrayView("progress=end"))
        return 1.0;
    return std::nullopt;
}

} // namespace quorvale
