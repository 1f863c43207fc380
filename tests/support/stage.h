// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QImage>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>

#include <memory>

namespace quorvale {
class DrawnItem;
}

namespace quorvale::test {

/// What the item draws at the number of device pixels to a logical one, on nothing, with `margin`
/// logical pixels around the item. Premultiplied.
QImage drawn(const DrawnItem &item, qreal ratio, qreal margin = 0);

/// The image's pixel that holds the place of an item drawn with the margin.
QRgb pixelAt(const QImage &image, QPointF place, qreal margin = 0);

/// Whether all pixels are the colour at some opacity, but for rounding.
bool isAll(const QImage &image, const QColor &color);

/// A white window, rendered in software, that shows items of the module Quorvale.Style.
class Stage
{
public:
    Stage();

    /// Builds the item from its QML code and places it at 20, 20. Throws what the engine says
    /// against it.
    QQuickItem &show(const QByteArray &code);

    /// Places an item of the test's own at 20, 20.
    void show(QQuickItem &item);

    /// What the window shows, with its number of device pixels to a logical one.
    QImage picture();

private:
    static bool renderInSoftware();

    const bool m_isInSoftware = renderInSoftware();
    QQmlEngine m_engine;
    QQuickWindow m_window;
    std::unique_ptr<QQuickItem> m_item;
};

} // namespace quorvale::test
