// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "activewindow.h"

#include <QGuiApplication>
#include <QWindow>

#include <algorithm>

namespace quorvale {

QWindow *activeWindow()
{
    QWindow *focused = QGuiApplication::focusWindow();
    if (focused && focused->isVisible()) // the focus may still be with a dialog that is closing
        return focused;
    const auto windows = QGuiApplication::topLevelWindows();
    const auto visible = std::ranges::find_if(windows, &QWindow::isVisible);
    return visible == windows.end() ? nullptr : *visible;
}

} // namespace quorvale
