// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QGuiApplication>
#include <QObject>
#include <QtQmlIntegration>

namespace quorvale {

/// The mouse as it is, whichever item its events go to. Main thread.
class MouseButtons : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    using QObject::QObject;

    /// Whether a button is held. No longer while its release is delivered.
    Q_INVOKABLE static bool areHeld() { return QGuiApplication::mouseButtons() != Qt::NoButton; }
};

} // namespace quorvale
