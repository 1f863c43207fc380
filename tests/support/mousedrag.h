// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "childofthetest.h"

#include <QByteArray>
#include <QStringList>

namespace quorvale::test {

class VirtualDisplay;

/// Drags with the mouse from a window of another program; see tests/fakes/dragsource.cpp.
class MouseDrag
{
public:
    /// What becomes of a drag: nothing, because it does not even get to the window; refused or
    /// taken by the window.
    enum class End { lost, refused, taken };

    explicit MouseDrag(const VirtualDisplay &display) : m_display(display) {}

    /// Drops files and folders, all at once, in the middle of the window.
    End dropFiles(const QStringList &paths, const QString &window) const;

    End dropText(const QString &text, const QString &window) const;

private:
    enum class Expected { taken, refused };

    End drop(const QStringList &arguments, Expected expected, const QString &window) const;

    const VirtualDisplay &m_display;
};

} // namespace quorvale::test
