// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "checkedarithmetic.h"

#include <QtNumeric>

#include <cmath>

namespace quorvale {

bool fitsInteger(double value)
{
    // Both bounds are exact in double precision, unlike the largest 64-bit integer itself.
    constexpr double lowest = -9223372036854775808.0;
    constexpr double beyondHighest = 9223372036854775808.0;
    const double whole = std::trunc(value);
    return whole >= lowest && whole < beyondHighest; // not so for a NaN
}

qint64 truncatedToInteger(double value)
{
    if (!fitsInteger(value))
        qFatal("A number does not fit a 64-bit integer: %g", value);
    return static_cast<qint64>(value);
}

qint64 roundedToInteger(double value)
{
    return truncatedToInteger(std::round(value));
}

qint64 checkedProduct(qint64 a, qint64 b)
{
    qint64 product = 0;
    if (qMulOverflow(a, b, &product))
        qFatal("The product of %lld and %lld does not fit a 64-bit integer", a, b);
    return product;
}

qint64 checkedSum(qint64 a, qint64 b)
{
    qint64 sum = 0;
    if (qAddOverflow(a, b, &sum))
        qFatal("The sum of %lld and %lld does not fit a 64-bit integer", a, b);
    return sum;
}

} // namespace quorvale
