// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QQuickItem>
#include <QtQmlIntegration>

namespace quorvale {

/// The order of the items that share a parent, in which assistive technology goes through them.
/// Main thread.
class Stacking : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    using QObject::QObject;

    /// Stacks the parent's items that have a property `index` by it, the lowest number lowest. A
    /// view of a list leaves its items where they were when rows move, and has them anew for other
    /// rows when it scrolls.
    Q_INVOKABLE static void sortByIndex(const QQuickItem *parent);
};

} // namespace quorvale
