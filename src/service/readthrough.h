// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QUrl>

#include <stop_token>

namespace quorvale {

/// Reads `source` to its end, for the case that ffmpeg says of an MP4 or MOV file that it ends
/// early: 4.x says so, too, when the disk does not let it read on, and then says nothing of the
/// disk. Ends early, too, once `cancelled` is requested. Blocks; any thread.
///
/// Throws SystemError when the disk fails (see ReadErrors), and nothing when the file is not there
/// any more or may not be read, which is no fault of a disk.
void readThrough(const QUrl &source, const std::stop_token &cancelled);

} // namespace quorvale
