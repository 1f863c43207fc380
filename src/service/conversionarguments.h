// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "model/conversionsettings.h"

#include <QByteArrayList>
#include <QUrl>

#include <optional>

namespace quorvale {

/// The whole ffmpeg command line behind the program's name, one word an element, for converting
/// the file `source` into the file `destination`. `targetBitrate` is the video's, in bits per
/// second, or none when quality decides. The destination is always the last word.
QByteArrayList conversionArguments(const QUrl &source, const QUrl &destination,
                                   const ConversionSettings &settings,
                                   std::optional<qint64> targetBitrate);

} // namespace quorvale
