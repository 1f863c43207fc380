// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace quorvale::bench {

/// Makes `count` videos with moving pictures in the folder with the machine's ffmpeg. Ends the
/// program when it cannot.
void makeClips(const QString &folder, int count, int seconds, const QString &size);

} // namespace quorvale::bench
