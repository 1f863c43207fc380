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
/// lines, whether any line said that an encoder is not there, and which said that the source or
/// the output is not whole. Memory stays bounded whatever arrives.
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

    /// What it said about a source that could not be read and about the output.
    const ReadErrors &readErrors() const { return m_readErrors; }
    const WriteErrors &writeErrors() const { return m_writeErrors; }

private:
    void takeLine(QByteArrayView line);

    QByteArray m_unknownEncoder;
    bool m_lacksEncoder = false;
    ReadErrors m_readErrors;
    WriteErrors m_writeErrors;
    std::deque<QByteArray> m_tail;
    LineReader m_lines;
};

} // namespace quorvale
