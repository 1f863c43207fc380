// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "childofthetest.h"

#include <QDBusConnection>
#include <QTemporaryDir>

namespace quorvale::test {

/// A D-Bus session bus of the test's own, on which nothing is.
class PrivateBus
{
public:
    /// Of the machine's services, it starts those of these names when they are asked for.
    explicit PrivateBus(const QStringList &services = {});
    ~PrivateBus();

    PrivateBus(const PrivateBus &) = delete;
    PrivateBus &operator=(const PrivateBus &) = delete;

    const QString &address() const { return m_address; }

    /// A connection to the bus. Each `name` is one connection, made at its first use.
    QDBusConnection connection(const QString &name) const;

    /// Has the bus do nothing any more, as when it hangs; it still takes connections.
    void hang() const;

    /// Ends the bus itself, for everybody on it.
    void end();

private:
    QTemporaryDir m_folder;
    ChildOfTheTest m_daemon;
    QString m_address;
    mutable QStringList m_names;
};

} // namespace quorvale::test
