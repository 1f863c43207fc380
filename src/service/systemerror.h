// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>

#include <exception>

namespace quorvale {

/// A failure that the operating system reported: a folder that cannot be created, a tool that
/// cannot be started. The description names the object and the system's reason.
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
