// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QQuickItem>
#include <QtQmlIntegration>

namespace quorvale::test {

/// A pen, as the platform tells the window of it. Main thread.
class Pen : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    using QObject::QObject;

    /// Touches a place of the item and leaves it.
    Q_INVOKABLE static void tap(QQuickItem *item, qreal x, qreal y);
};

} // namespace quorvale::test
