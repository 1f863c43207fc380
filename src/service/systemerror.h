// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>

#include <exception>

namespace quorvale {

/// A failure that is not ffmpeg's own: a source that is no file, that states an impossible bitrate,
/// that its own output would replace or that turns out not to be readable, a folder that cannot be
/// created, a name that is too long, a tool that cannot be started. The description says what is
/// wrong with what, for the user to read.
class SystemError : public std::exception
{
public:
    explicit SystemError(const QString &description) : m_description(description.toUtf8()) {}

    /// The description in UTF-8.
    const char *what() const noexcept override { return m_description.constData(); }

private:
    QByteArray m_description;
};

} // namespace quorvale
