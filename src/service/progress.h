// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArrayView>

#include <optional>

namespace quorvale {

/// How far into the output ffmpeg is, in seconds, as one line of its progress stream states it
/// (ffmpeg manual, option "-progress"); none when the line states no time. Can be negative.
std::optional<double> progressTime(QByteArrayView line);

/// The fraction done that one line of ffmpeg's progress stream states (ffmpeg manual, option
/// "-progress"), for a source that lasts `duration` seconds, 0 when unknown; none when the line
/// states none. At most 1, but negative when the stated time is.
std::optional<double> progressFraction(QByteArrayView line, double duration);

} // namespace quorvale
