// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>
#include <QImage>
#include <QObject>
#include <QQuickItem>
#include <QQuickWindow>
#include <QtQmlIntegration>

namespace quorvale::test {

/// What a test of a view can see. Main thread.
class Pixels : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    using QObject::QObject;

    /// Lays out and draws the item's window now instead of with its next frame.
    Q_INVOKABLE static void layOut(QQuickItem *item) { item->window()->grabWindow(); }

    /// The colour that the window shows at a place of the item.
    Q_INVOKABLE static QColor at(QQuickItem *item, qreal x, qreal y);

    /// The colour that the item stands on: the commonest close around it.
    Q_INVOKABLE static QColor around(QQuickItem *item);

    /// How much the colour, as the item's opacity leaves it, stands out from what the item stands
    /// on: the contrast ratio of the Web Content Accessibility Guidelines 2.1, 1 to 21.
    Q_INVOKABLE static double contrast(QQuickItem *item, const QColor &color);

    /// How much the two colours, over an opaque one, stand out from each other; 1 to 21.
    Q_INVOKABLE static double contrastBetween(const QColor &one, const QColor &other,
                                              const QColor &below);

    /// How much what the window shows in the item stands out, where it does so most, from what the
    /// item stands on.
    Q_INVOKABLE static double drawnContrast(QQuickItem *item);

    /// The rectangle of the item that shows more than half of the colour.
    Q_INVOKABLE static QRectF drawnArea(QQuickItem *item, const QColor &color);

    /// How many of the pixels that the window shows in the item have the colour.
    Q_INVOKABLE static int count(QQuickItem *item, const QColor &color);

private:
    static QImage picture(QQuickItem &item, qreal margin);
};

} // namespace quorvale::test
