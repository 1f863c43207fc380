// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "reach.h"

#include "desktop/inputbarrier.h"

#include <QGuiApplication>
#include <QQuickWindow>

#include <algorithm>

namespace quorvale {

namespace {

// Popups lie in a layer of the window. What shows one belongs to the popup, a type that Qt keeps to
// itself.
bool isModalPopup(const QQuickItem *item)
{
    return item->isVisible() && item->parent() && item->parent()->property("modal").toBool();
}

bool isBehindPopup(const QQuickItem *item)
{
    const auto isBehindOneOf = [item](const QQuickItem *layer) {
        return std::ranges::any_of(layer->childItems(), [item](const QQuickItem *child) {
            return isModalPopup(child) && !child->isAncestorOf(item);
        });
    };
    return std::ranges::any_of(item->window()->contentItem()->childItems(), isBehindOneOf);
}

} // namespace

bool Reach::includes(const QQuickItem *item)
{
    if (!item || !item->window() || !item->isEnabled() || !item->isVisible())
        return false;
    const QWindow *dialog = QGuiApplication::modalWindow();
    return (!dialog || dialog == item->window()) && !InputBarrier::isUp() && !isBehindPopup(item);
}

} // namespace quorvale
