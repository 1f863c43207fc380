// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "childofthetest.h"

#include <QRect>
#include <QSize>
#include <QStringList>
#include <QTemporaryDir>

#include <optional>

namespace quorvale::test {

/// A display that exists in memory only, with a window manager, a mouse and a keyboard. The main
/// window is put at the top left, the window of a drag source at the top right.
class VirtualDisplay
{
public:
    /// In pixels.
    static constexpr QSize size{1280, 800};

    /// Starts it. Ends the test when that fails, such as for a missing tool.
    VirtualDisplay();

    /// Ends it, so that nothing of it stays in the system's folder of displays.
    ~VirtualDisplay();

    VirtualDisplay(const VirtualDisplay &) = delete;
    VirtualDisplay &operator=(const VirtualDisplay &) = delete;

    /// The name for the environment variable DISPLAY.
    QString name() const { return m_name; }

    /// What a program needs in its environment to show its windows here.
    QProcessEnvironment environment() const;

    /// Works the mouse or the keyboard. What xdotool says, or none, with a warning, when it fails.
    std::optional<QByteArray> xdotool(const QStringList &arguments) const;

    /// The window with the title, if it is shown; waits for it.
    std::optional<QString> waitForWindow(const QString &title) const;

    /// The windows with the title that are shown now.
    QStringList windows(const QString &title) const;

    /// Waits until no window with the title is shown.
    bool waitForNoWindow(const QString &title, int milliseconds) const;

    /// Gives the window the keyboard.
    bool activate(const QString &window) const;

    /// Whether the window asks the user to look at it.
    bool demandsAttention(const QString &window) const;

    /// Where the window's content is on the screen; null, with a warning, when it is not. Parks the
    /// mouse.
    QRect areaOf(const QString &window) const;

    /// Puts the mouse into the screen's corner, out of the way.
    bool parkMouse() const;

    /// The pixels that the screen shows in the area, mouse pointer included, four bytes each.
    QByteArray picture(const QRect &area) const;

    /// The picture when nothing has changed in it for a while; empty, with a warning, when there is
    /// no end of changes.
    QByteArray restingPicture(const QRect &area) const;

private:
    std::optional<QByteArray> run(const QStringList &arguments) const;

    QTemporaryDir m_folder;
    QString m_name;
    ChildOfTheTest m_server;
    ChildOfTheTest m_windowManager;
};

} // namespace quorvale::test
