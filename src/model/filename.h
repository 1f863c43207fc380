// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "outputcodec.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

namespace quorvale {

// Paths and names are bytes, as the system knows them; see filepath.h. What is returned as a view
// lives as long as what it was taken from.

/// `path` without the slashes at its end, of which only the root's means something.
QByteArrayView withoutTrailingSlashes(QByteArrayView path);

/// The last component of `path`, "/" for the root itself; a trailing slash does not count.
QByteArrayView lastPathComponent(QByteArrayView path);

/// The last component of the folder that holds the file at `path`, "/" for a file in the root; with
/// the name before it where it is "..", which says nothing alone.
QByteArrayView folderName(QByteArrayView path);

/// The part of the file name `name` behind its last dot; empty when there is no dot or only a
/// leading one (".mp4" is a hidden file without extension).
QByteArrayView pathExtension(QByteArrayView name);

/// The same in lower case, to compare with.
QString lowerCaseExtension(QByteArrayView name);

/// The file name `name` without its last extension: "trip.final.mkv" gives "trip.final".
QByteArrayView withoutExtension(QByteArrayView name);

/// The name of the file that a conversion of a source named `sourceName` to `codec` writes:
/// "clip_converted.mp4", or ".mov" for ProRes. From the second `attempt` on, for when the earlier
/// names are taken, its number stands before the extension: "clip_converted_2.mp4".
QByteArray outputFileName(QByteArrayView sourceName, OutputCodec codec, int attempt = 1);

} // namespace quorvale
