// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "childofthetest.h"

#include <QRect>

namespace quorvale::test {

class VirtualDisplay;

/// Another program's window, "Drag source", from which files are dragged:
/// tests/fakes/dragsource.cpp.
class DragSource
{
public:
    /// Starts it in the environment, with files and folders by their paths or encoded URLs. The
    /// mouse is the display's.
    DragSource(const VirtualDisplay &display, const QProcessEnvironment &environment,
               const QStringList &paths);

    /// Drags what it has from the middle of its own area of the screen to that of another one and
    /// drops it there. False, with a warning, unless it is taken there.
    bool drop(const QRect &from, const QRect &to);

private:
    // Has the mouse move about the middle of the area until the source says so.
    bool moveUntil(const QRect &area, const char *awaited);

    const VirtualDisplay &m_display;
    ChildOfTheTest m_process;
    QByteArray m_said;
};

} // namespace quorvale::test
