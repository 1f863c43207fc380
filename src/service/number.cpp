// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "number.h"

#include <algorithm>
#include <cmath>

namespace quorvale {

namespace {

bool consistsOf(QByteArrayView text, QByteArrayView allowed)
{
    return std::ranges::all_of(text, [allowed](char c) { return allowed.contains(c); });
}

} // namespace

// Qt's conversions use the C locale here but tolerate white space around the number and know
// words such as "inf"; the character sets rule both out.

std::optional<double> parseNumber(QByteArrayView text)
{
    bool isNumber = false;
    const double value = text.toDouble(&isNumber);
    if (!isNumber || !std::isfinite(value) || !consistsOf(text, "0123456789+-.eE"))
        return std::nullopt;
    return value;
}

std::optional<qint64> parseInteger(QByteArrayView text)
{
    bool isNumber = false;
    const qint64 value = text.toLongLong(&isNumber, 10);
    if (!isNumber || !consistsOf(text, "0123456789+-"))
        return std::nullopt;
    return value;
}

} // namespace quorvale
