// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

namespace quorvale {

// Arithmetic whose result must fit a 64-bit signed integer. A result that does not is a
// programming error: it stops the program, in release builds too.

/// Whether `value`, truncated toward zero, does.
bool fitsInteger(double value);

/// `value` truncated toward zero. Stops the program when it is not finite or does not fit.
qint64 truncatedToInteger(double value);

/// `value` rounded to the nearest integer, halves away from zero. Stops the program when it is not
/// finite or the rounded value does not fit.
qint64 roundedToInteger(double value);

/// `a` × `b`. Stops the program when it does not fit.
qint64 checkedProduct(qint64 a, qint64 b);

/// `a` + `b`. Stops the program when it does not fit.
qint64 checkedSum(qint64 a, qint64 b);

} // namespace quorvale
