// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>

#include <exception>

namespace quorvale {

/// The encoder service's own conditions. Their descriptions are shown to the user as they stand.
class FFmpegError : public std::exception
{
public:
    enum class Case {
        processFailed, ///< ffmpeg ended with a non-zero exit status or its output is not whole
        notFound,      ///< there is no ffmpeg where one is looked for
        cancelled,     ///< a signal ended ffmpeg, or a cancel came before its second run
    };

    /// `text` is what ffmpeg said about it last; it may be empty.
    static FFmpegError processFailed(const QString &text);
    static FFmpegError notFound();
    static FFmpegError cancelled();

    /// Which of the conditions it is.
    Case kind() const { return m_kind; }

    /// The text for the user; never empty.
    QString errorDescription() const { return QString::fromUtf8(m_description); }

    /// errorDescription() in UTF-8.
    const char *what() const noexcept override { return m_description.constData(); }

private:
    FFmpegError(Case kind, const QString &description);

    Case m_kind;
    QByteArray m_description;
};

} // namespace quorvale
