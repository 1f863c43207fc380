// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <functional>

namespace quorvale {

/// Cuts a stream of bytes, arriving in pieces of any size, into lines. Memory stays bounded
/// whatever arrives: of a line longer than `longestLine` only the beginning is kept.
class LineReader
{
public:
    enum class Endings {
        lineFeed,         ///< only LF ends a line
        lineFeedOrReturn, ///< LF, CR or CRLF ends a line
    };

    struct Line
    {
        QByteArrayView bytes;   ///< without its ending; valid only during the call
        bool isComplete = true; ///< false when the line was longer than `longestLine`
    };
    using Handler = std::function<void(const Line &)>;

    /// The longest line, in bytes, that reaches the handler whole.
    static constexpr qsizetype longestLine = 16'384;

    /// `handler` is called once per line, during read() or finish().
    LineReader(Endings endings, Handler handler);

    /// Takes the next bytes of the stream.
    void read(QByteArrayView bytes);

    /// Says that the stream has ended: a last line without an ending counts as a line.
    void finish();

private:
    qsizetype indexOfEnding(QByteArrayView bytes) const;
    void append(QByteArrayView bytes);
    void endLine();

    Endings m_endings;
    Handler m_handler;
    QByteArray m_line;
    bool m_isComplete = true;
    bool m_hasStarted = false;
    bool m_skipLineFeed =
        false; // the last line ended in CR, so an LF right behind it belongs to it
};

} // namespace quorvale
