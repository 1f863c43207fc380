// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArrayList>
#include <QByteArrayView>

namespace quorvale {

/// A path as ffmpeg prints it on standard error, where it can hold line feeds: what is said about
/// such a path stands in several lines.
class PrintedPath
{
public:
    explicit PrintedPath(QByteArray path);

    /// ffmpeg replaces control characters, but no white space.
    const QByteArray &text() const { return m_text; }

    /// The stream's next line, without its line feed, together with as many before it as the path
    /// has line feeds: where a text with the path ends in this line, this is that text. Valid until
    /// the next call, and as long as `line`.
    QByteArrayView withLinesBefore(QByteArrayView line);

private:
    QByteArray m_text;
    qsizetype m_height; // in lines
    QByteArrayList m_lastLines;
    QByteArray m_joined;
};

} // namespace quorvale
