// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "printedpath.h"

#include <QString>

namespace quorvale {

/// Finds what ffmpeg says on standard error about a source that could not be read to its end. Its
/// exit status does not tell: it takes what it has read for all there is, and ends with 0. The
/// lines, from their first column, with the system's words for the errors of a disk, a share or a
/// device that has gone:
///
/// - "FILE: Input/output error" (4.x, 5.x), FILE being the source as it was given;
/// - "[in#0/mov,mp4 @ 0x…] Error during demuxing: Input/output error" (6.x and newer).
///
/// Metadata of the source can contain such a line and can put it into the first column. Every
/// version repeats it where it describes the output, but prints it first where it describes the
/// source; that is before "Stream mapping:", and nothing is converted before. So a source that has
/// such a line there is not believed any of them, and neither is an output folder whose name has.
class ReadErrors
{
public:
    /// The paths of `source` and `destination` are those of ffmpeg's command line.
    ReadErrors(const QByteArray &source, const QByteArray &destination);

    /// Takes the next line without its line feed, empty ones too.
    void takeLine(QByteArrayView line);

    /// The first of them, invalid UTF-8 replaced; empty when there was none.
    QString text() const { return QString::fromUtf8(m_isForged ? QByteArray() : m_found); }

    /// ffmpeg's words for the system's error number; empty where it is none of a disk, a share or a
    /// device.
    static QByteArrayView wordsFor(int error);

private:
    bool isReadError(QByteArrayView text) const;

    PrintedPath m_source;
    QByteArray m_found;
    bool m_isForged = false;
};

} // namespace quorvale
