// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDBusConnection>

#include <optional>

namespace quorvale {

/// The progress on the program's icon, in docks and task bars that show it: the signal Update of
/// com.canonical.Unity.LauncherEntry (Unity's launcher API, which others took over). Main thread.
class DockProgress
{
public:
    explicit DockProgress(const QDBusConnection &bus) : m_bus(bus) {}

    /// Shows a fraction, which is brought to 0 to 1; nothing is sent within a whole percent.
    void show(double fraction);

    void hide();

    /// Hides it, and waits, for a moment at most, until that is sent: for the end of the program.
    void hideForGood();

private:
    void send(bool isVisible, int percent);

    QDBusConnection m_bus;
    std::optional<int> m_percent; // that are shown
};

} // namespace quorvale
