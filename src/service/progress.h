// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArrayView>

#include <optional>

namespace quorvale {

/// The fraction done that one line of ffmpeg's progress stream states (ffmpeg manual, option
/// "-progress"), for a source that lasts `duration` seconds, 0 when unknown; none when the line
/// states none. At most 1, but negative when the stated time is.
std::optional<double> progressFraction(QByteArrayView line, double duration);

} // namespace quorvale
