// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "accessibleitem.h"
#include "privatebus.h"

#include <QDBusConnection>

#include <optional>

#include <sys/types.h>

namespace quorvale::test {

/// What a screen reader uses: the bus on which programs tell about their windows, on a session bus
/// of the test's own that offers nothing else by itself.
class AccessibilityBus
{
public:
    AccessibilityBus() = default;
    ~AccessibilityBus();

    AccessibilityBus(const AccessibilityBus &) = delete;
    AccessibilityBus &operator=(const AccessibilityBus &) = delete;

    /// Starts it. False, with a warning, when that fails, such as for a missing tool.
    bool start();

    const PrivateBus &session() const { return m_session; }

    /// The program of the process, whose children are its windows; none as long as it is not on the
    /// bus.
    std::optional<AccessibleItem> application(pid_t process) const;

private:
    QDBusConnection connection() const { return QDBusConnection(m_address); }

    PrivateBus m_session{{QStringLiteral("org.a11y.Bus")}};
    QString m_address;
};

} // namespace quorvale::test
