// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "earlyend.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace quorvale {

namespace {

QString clockTime(double wholeSeconds)
{
    constexpr double longest = 1e9; // a double can hold more than an integer
    const auto seconds = static_cast<qint64>(std::clamp(wholeSeconds, 0.0, longest));
    const auto twoDigits = [](qint64 number) {
        return u"%1"_s.arg(number, 2, 10, QChar(u'0'));
    };
    const qint64 minutes = seconds / 60;
    const QString rest = u':' + twoDigits(seconds % 60);
    return minutes < 60 ? QString::number(minutes) + rest
                        : u"%1:%2"_s.arg(minutes / 60).arg(twoDigits(minutes % 60)) + rest;
}

} // namespace

QString remark(const EarlyEnd &end)
{
    const QString reached = clockTime(std::floor(end.reached));
    const QString duration = clockTime(std::round(end.duration));
    return reached == duration ? u"The source ends early."_s
                               : u"The source ends early: %1 of %2."_s.arg(reached, duration);
}

} // namespace quorvale
