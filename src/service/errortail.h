// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "linereader.h"
#include "writeerrors.h"

#include <QString>

#include <deque>

namespace quorvale {

/// What a failure message can need of a tool's standard error: its last eight non-empty lines,
/// whether any line said that an encoder is not there, and which said that the output is not whole.
/// Memory stays bounded whatever arrives.
class ErrorTail
{
public:
    /// `encoder` is the encoder that ffmpeg was asked for, `destination` the path of its output.
    ErrorTail(const QString &encoder, const QByteArray &destination);

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

    /// What it said about an output that is not whole; empty when it said nothing.
    QString writeErrors() const { return m_writeErrors.text(); }

private:
    void takeLine(QByteArrayView line);

    QByteArray m_unknownEncoder;
    bool m_lacksEncoder = false;
    WriteErrors m_writeErrors;
    std::deque<QByteArray> m_tail;
    LineReader m_lines;
};

} // namespace quorvale
