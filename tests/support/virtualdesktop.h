// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "accessibleitem.h"
#include "privatebus.h"
#include "virtualdisplay.h"

#include <optional>

#include <sys/types.h>

namespace quorvale::test {

/// What a desktop session offers a program: a display, and a bus with what a screen reader uses.
/// There is nothing else on that bus, so that the program shows panels of its own, unless the test
/// puts a portal there. Ends the test when that cannot be had.
class VirtualDesktop
{
public:
    VirtualDesktop();
    ~VirtualDesktop();

    VirtualDesktop(const VirtualDesktop &) = delete;
    VirtualDesktop &operator=(const VirtualDesktop &) = delete;

    const VirtualDisplay &display() const { return m_display; }
    const PrivateBus &session() const { return m_session; }

    /// The bus on which programs tell about their windows.
    QDBusConnection accessibility() const { return QDBusConnection(m_accessibility); }

    /// The program of the process as it tells about its windows, which are its children; none as
    /// long as it does not.
    std::optional<AccessibleItem> application(pid_t process) const;

private:
    VirtualDisplay m_display;
    PrivateBus m_session{{QStringLiteral("org.a11y.Bus")}};
    QString m_accessibility; // the address of that bus
};

} // namespace quorvale::test
