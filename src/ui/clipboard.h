// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QClipboard>
#include <QGuiApplication>
#include <QObject>
#include <QString>
#include <QtQmlIntegration>

namespace quorvale {

/// The desktop's clipboard, for the views. Main thread.
class Clipboard : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    using QObject::QObject;

    /// Puts `text` in place of what is there.
    Q_INVOKABLE static void copy(const QString &text)
    {
        QGuiApplication::clipboard()->setText(text);
    }
};

} // namespace quorvale
