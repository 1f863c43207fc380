// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "windowrefresh.h"

#include <QGuiApplication>
#include <QWindow>

using namespace Qt::StringLiterals;

namespace quorvale {

void refreshFrames()
{
    if (QGuiApplication::platformName() != u"wayland"_s)
        return;
    for (QWindow *window : QGuiApplication::topLevelWindows()) {
        if (window->frameMargins().isNull()) // or it is not Qt that draws it
            continue;
        // A frame that goes and comes at once is a new one, and the window stays what it is.
        const Qt::WindowFlags flags = window->flags();
        window->setFlags(flags | Qt::FramelessWindowHint);
        window->setFlags(flags);
    }
}

void refreshSizes()
{
    for (QWindow *window : QGuiApplication::topLevelWindows()) {
        const QSize size = window->size();
        window->resize(size + QSize(1, 1)); // as what is the same is not said
        window->resize(size);
    }
}

} // namespace quorvale
