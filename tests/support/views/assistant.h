// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QQuickItem>
#include <QtQmlIntegration>

namespace quorvale::test {

/// Works a control as assistive technology does, without the mouse and the keyboard. Main thread.
class Assistant : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    explicit Assistant(QObject *parent = nullptr);

    /// What can be done with the item.
    Q_INVOKABLE static QStringList actions(QQuickItem *item);

    /// Does one of its actions.
    Q_INVOKABLE static void act(QQuickItem *item, const QString &action);

    /// Sets its value.
    Q_INVOKABLE static void setValue(QQuickItem *item, double value);

    /// Its value, of an item that has one; undefined of others.
    Q_INVOKABLE static QVariant value(QQuickItem *item);

    /// What is read beside its name.
    Q_INVOKABLE static QString description(QQuickItem *item);
};

} // namespace quorvale::test
