// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringView>

namespace quorvale {

/// A failure's message from the first line on that is more than ffmpeg's description of what it
/// reads, writes and does, and of how the encoders fared. Of ffmpeg's last lines these are most,
/// and why it failed stands below them. The whole message where there is no such line.
///
/// The wording is that of ffmpeg 4.3 to 9.0 with x264, x265 and its own encoders. A line in words
/// that are not known here counts as a reason.
QString failureReason(QStringView message);

} // namespace quorvale
