// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QEventPoint>
#include <QObject>
#include <QtQmlIntegration>

namespace quorvale {

/// What QML cannot ask a point of a pointer's event. Main thread.
class EventPoints : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    using QObject::QObject;

    /// Whether the user has let go. QML reads a number that nobody has given the point.
    Q_INVOKABLE static bool isReleased(const QEventPoint &point)
    {
        return point.state() == QEventPoint::Released;
    }
};

} // namespace quorvale
