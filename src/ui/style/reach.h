// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QQuickItem>
#include <QtQmlIntegration>

namespace quorvale {

/// What assistive technology may work. Qt passes on what it asks for even to controls that neither
/// the mouse nor the keyboard gets to. Main thread.
class Reach : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    using QObject::QObject;

    /// Whether the item is shown and enabled and no modal dialog, be it a window or a popup,
    /// stands before it.
    Q_INVOKABLE static bool includes(const QQuickItem *item);
};

} // namespace quorvale
