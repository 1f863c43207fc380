// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>

namespace quorvale::test {

/// A terminal without anybody in front of it.
class PseudoTerminal
{
public:
    PseudoTerminal();
    ~PseudoTerminal();

    PseudoTerminal(const PseudoTerminal &) = delete;
    PseudoTerminal &operator=(const PseudoTerminal &) = delete;

    /// False when the system gave none.
    bool isOpen() const { return m_terminal >= 0; }

    /// The path of its device.
    const QString &path() const { return m_path; }

    /// The program's end of it.
    int descriptor() const { return m_terminal; }

    /// Its settings, in no particular format; empty when they cannot be read.
    QByteArray mode() const;

private:
    int m_controller = -1;
    int m_terminal = -1;
    QString m_path;
};

} // namespace quorvale::test
