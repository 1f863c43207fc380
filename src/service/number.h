// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArrayView>
#include <QtGlobal>

#include <optional>

namespace quorvale {

// Numbers in the tools' output. The whole text must be the number: white space, trailing text,
// digit grouping and the words for infinity and not-a-number make it none. The locale plays no
// part.

/// `text` as a decimal floating-point number with optional sign, fraction and exponent; none also
/// when it does not fit a double.
std::optional<double> parseNumber(QByteArrayView text);

/// `text` as a base-10 integer: one optional leading plus or minus sign, then digits only; none
/// also when it does not fit 64 bits.
std::optional<qint64> parseInteger(QByteArrayView text);

} // namespace quorvale
