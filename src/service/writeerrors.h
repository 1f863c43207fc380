// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "printedpath.h"

#include <QString>

namespace quorvale {

/// Finds what ffmpeg says on standard error about an output that is not whole. Its exit status does
/// not tell: 4.x and 5.x end with 0 when a full disk or a folder that has gone spoils the end of
/// the file, 6.1 and newer when the file was there already. The lines, from their first column:
///
/// - "Error writing trailer of FILE: …" (4.x, 5.x) and "Error closing file FILE: …" (5.x), FILE
///   being the output as it was given;
/// - "[out#0/mp4 @ 0x…] Error writing trailer: …" and "… Error closing file: …" (6.x and newer);
/// - "File 'FILE' already exists. Exiting." (all).
///
/// And what it says about one that holds nothing, which ends with 0 as well:
///
/// - "video:0kB audio:0kB … muxing overhead: unknown" (4.x, 5.x; 6.x and newer with "[out#0/mp4 @
///   0x…] " before it, and "KiB"): of what is there, however little, the overhead is known.
///
/// Metadata of the source, printed before the output is begun, can contain such a line and can put
/// it into the first column. So what was found is forgotten when the muxer says that it starts its
/// second pass, after which nothing of the source is printed and only then the file is finished;
/// option "+faststart" makes every version say so.
class WriteErrors
{
public:
    /// `destination` is the output's path, the last word of ffmpeg's command line.
    explicit WriteErrors(const QByteArray &destination);

    /// Takes the next line without its line feed, empty ones too.
    void takeLine(QByteArrayView line);

    /// The lines found, the last eight at most, joined by line feeds, invalid UTF-8 replaced; empty
    /// when there was none.
    QString text() const { return QString::fromUtf8(m_found.join('\n')); }

    /// Whether nothing at all was written into the output.
    bool isNothingWritten() const { return m_isNothingWritten; }

private:
    bool isAboutDestination(QByteArrayView text) const;
    void add(QByteArrayView error);

    PrintedPath m_destination;
    QByteArrayList m_beginnings;
    QByteArray m_refusal;
    QByteArrayList m_found;
    bool m_isNothingWritten = false;
};

} // namespace quorvale
