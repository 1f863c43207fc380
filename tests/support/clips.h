// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDir>
#include <QString>
#include <QStringList>

namespace quorvale::test {

// Small videos of clipSeconds with moving pictures and, mostly, a tone, made by the machine's own
// ffmpeg. Each has its file name as its title, where its container keeps a title. The test program
// ends when one cannot be made.

inline constexpr double clipSeconds = 1.0;

/// The file names of all clips: every accepted extension, codecs old and new, one clip without
/// sound, "silent.mp4", and one that does not state how long it is, "undated.mkv". No two have the
/// same base name.
QStringList clipNames();

/// Makes the clip called `name` in the folder; its path.
QString makeClip(const QString &name, const QDir &folder);

/// Makes a copy of the clip at `path` that is `times` as long.
void repeatClip(const QString &path, int times, const QString &copy);

/// Makes a copy of the clip at `path` with another title.
void retitleClip(const QString &path, const QString &title, const QString &copy);

} // namespace quorvale::test
