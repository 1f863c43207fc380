// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "childofthetest.h"

#include <QDBusConnection>
#include <QTemporaryDir>

namespace quorvale::test {

/// A D-Bus session bus of the test's own, on which nothing is and nothing is started.
class PrivateBus
{
public:
    PrivateBus();
    ~PrivateBus();

    PrivateBus(const PrivateBus &) = delete;
    PrivateBus &operator=(const PrivateBus &) = delete;

    /// A connection to the bus. Each `name` is one connection, made at its first use: programs that
    /// talk to each other are played by connections of different names.
    QDBusConnection connection(const QString &name) const;

    /// Closes the connection, as the end of its program does.
    void disconnect(const QString &name);

    /// Ends the bus itself, for everybody on it.
    void end();

private:
    QTemporaryDir m_folder;
    ChildOfTheTest m_daemon;
    QString m_address;
    mutable QStringList m_names;
};

} // namespace quorvale::test
