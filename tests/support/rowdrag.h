// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QPoint>
#include <QString>

namespace quorvale::test {

class VirtualDisplay;
class WindowDriver;

/// A drag of a row of the queue with the mouse, step by step. Each step returns false, with a
/// warning, when it fails.
class RowDrag
{
public:
    RowDrag(const VirtualDisplay &display, const WindowDriver &window)
        : m_display(display), m_window(window)
    {
    }

    /// Takes the row and drags it over another.
    bool dragOver(const QString &row, const QString &other);

    /// Lets it go.
    bool release() const;

private:
    bool move(QPoint to) const;

    const VirtualDisplay &m_display;
    const WindowDriver &m_window;
};

} // namespace quorvale::test
