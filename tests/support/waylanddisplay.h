// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "childofthetest.h"

#include <QJsonObject>
#include <QRect>
#include <QTemporaryDir>

#include <optional>

namespace quorvale::test {

class VirtualDisplay;

/// A Wayland compositor that fills the virtual display and takes its mouse and keyboard. Windows
/// float without frames: the main window at the top left, that of a drag source at the top right.
class WaylandDisplay
{
public:
    /// Starts it. Ends the test when that fails, such as for a missing tool.
    explicit WaylandDisplay(const VirtualDisplay &display);

    /// The name for the environment variable WAYLAND_DISPLAY.
    const QString &name() const { return m_name; }

    /// Has the compositor do something, in the words of its settings (see sway(5)). False, with a
    /// warning, when it does not.
    bool command(const QString &words) const;

    struct Window
    {
        QString id; ///< by which it belongs to a desktop entry
        QRect area; ///< of the screen, in pixels that are as large as at scale 1
    };
    /// The window with the title, if it is shown.
    std::optional<Window> window(const QString &title) const;

private:
    std::optional<QByteArray> ask(const QStringList &arguments) const;
    int outputWidth() const;

    QTemporaryDir m_folder;
    QString m_name;
    ChildOfTheTest m_compositor;
};

} // namespace quorvale::test
