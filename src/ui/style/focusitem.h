// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QFocusEvent>
#include <QQuickItem>
#include <QtQmlIntegration>

namespace quorvale {

/// An item that says how the keyboard came to it, as otherwise only controls do. Main thread.
class FocusItem : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT

public:
    using QQuickItem::QQuickItem;

Q_SIGNALS:
    /// It has got the keyboard for this Qt::FocusReason.
    void focused(int reason);

protected:
    void focusInEvent(QFocusEvent *event) override
    {
        QQuickItem::focusInEvent(event);
        Q_EMIT focused(event->reason());
    }
};

} // namespace quorvale
