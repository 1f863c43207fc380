// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "outputcodec.h"

#include <QString>
#include <QStringView>

namespace quorvale {

/// The last component of `path`, "/" for the root itself; a trailing slash does not count.
QString lastPathComponent(QStringView path);

/// The last component of the folder that holds the file at `path`, "/" for a file in the root.
QString folderName(QStringView path);

/// The part of the file name `name` behind its last dot; empty when there is no dot or only a
/// leading one (".mp4" is a hidden file without extension).
QStringView pathExtension(QStringView name);

/// The file name `name` without its last extension: "trip.final.mkv" gives "trip.final".
QStringView withoutExtension(QStringView name);

/// The name of the file that a conversion of a source named `sourceName` to `codec` writes:
/// "clip_converted.mp4", or ".mov" for ProRes. From the second `attempt` on, for when the earlier
/// names are taken, its number stands before the extension: "clip_converted_2.mp4".
QString outputFileName(QStringView sourceName, OutputCodec codec, int attempt = 1);

} // namespace quorvale
