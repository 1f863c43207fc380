// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "linereader.h"
#include "readerrors.h"
#include "writeerrors.h"

#include <QString>

#include <deque>

namespace quorvale {

/// What the outcome of a run can depend on of ffmpeg's standard error: its last eight non-empty
/// lines, whether any line said that an encoder is not there or that the source ends early, and
/// which said that the source or the output is not whole. Memory stays bounded whatever arrives.
class ErrorTail
{
public:
    /// `encoder` is the encoder that ffmpeg was asked for, `source` the path of its input,
    /// `destination` that of its output.
    ErrorTail(const QString &encoder, const QByteArray &source, const QByteArray &destination);

    // The reader calls back into this object.
    ErrorTail(const ErrorTail &) = delete;
    ErrorTail &operator=(const ErrorTail &) = delete;

    /// Takes the next bytes of the stream, cut anywhere.
    void read(QByteArrayView bytes) { m_lines.read(bytes); }

    /// Takes what stands behind the last line feed for a line, once the stream has ended.
    void finish() { m_lines.finish(); }

    /// The last eight non-empty lines, joined by line feeds, invalid UTF-8 replaced. A line of
    /// spaces counts as non-empty.
    QString text() const;

    /// Whether a line ended with ffmpeg's words for an encoder that it was built without.
    bool lacksEncoder() const { return m_lacksEncoder; }

    /// Whether a line was in ffmpeg's words for a source that ends before what it announces: "File
    /// ended prematurely", "stream 0, offset 0x1234: partial file" or "Packet corrupt (stream = 0,
    /// …", behind the name of a demuxer.
    bool saysEarlyEnd() const { return m_saysEarlyEnd; }

    /// Whether such a line was about an MP4 or MOV file, of which 4.x says so, too, when the disk
    /// does not let it read on.
    bool mayMeanReadError() const { return m_mayMeanReadError; }

    /// What it said about a source that could not be read and about the output.
    const ReadErrors &readErrors() const { return m_readErrors; }
    const WriteErrors &writeErrors() const { return m_writeErrors; }

private:
    void takeLine(QByteArrayView line);

    QByteArray m_unknownEncoder;
    bool m_lacksEncoder = false;
    bool m_saysEarlyEnd = false;
    bool m_mayMeanReadError = false;
    ReadErrors m_readErrors;
    WriteErrors m_writeErrors;
    std::deque<QByteArray> m_tail;
    LineReader m_lines;
};

} // namespace quorvale
