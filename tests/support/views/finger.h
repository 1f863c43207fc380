// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QQuickItem>
#include <QtQmlIntegration>

namespace quorvale::test {

/// A finger, as far as Qt Quick Test has none: its touchEvent() makes the touches. Main thread.
class Finger : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    using QObject::QObject;

    /// The desktop takes the touches of the item's window for a gesture of its own.
    Q_INVOKABLE static void cancel(QQuickItem *item);
};

} // namespace quorvale::test
