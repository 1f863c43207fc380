// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QList>

#include <functional>

namespace quorvale::bench {

/// The middle one of the values, or the mean of the two in the middle.
double median(QList<double> values);

/// Measures both in turn, as often as `pairs` says, after one turn that does not count; the median
/// of the ratios of the first to the second. In turn, because a machine's speed drifts.
double medianRatio(int pairs, const std::function<double()> &first,
                   const std::function<double()> &second);

} // namespace quorvale::bench
