// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QQuickItem>
#include <QtQmlIntegration>

namespace quorvale::test {

/// A pen, as the platform tells the window of it, at places of an item. Main thread.
class Pen : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    using QObject::QObject;

    Q_INVOKABLE static void press(QQuickItem *item, qreal x, qreal y,
                                  Qt::MouseButton button = Qt::LeftButton);
    /// While its tip is pressed.
    Q_INVOKABLE static void move(QQuickItem *item, qreal x, qreal y);
    Q_INVOKABLE static void release(QQuickItem *item, qreal x, qreal y);

    /// Touches the place and leaves it.
    Q_INVOKABLE static void tap(QQuickItem *item, qreal x, qreal y,
                                Qt::MouseButton button = Qt::LeftButton);
};

} // namespace quorvale::test
