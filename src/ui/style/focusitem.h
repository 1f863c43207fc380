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
    /// How much of what it stands for is done, from 0 to 1, which assistive technology reads behind
    /// the description when it asks; below 0 where there is nothing to be said.
    Q_PROPERTY(double fraction MEMBER m_fraction NOTIFY fractionChanged)

public:
    explicit FocusItem(QQuickItem *parent = nullptr);

    double fraction() const { return m_fraction; }

Q_SIGNALS:
    /// It has got the keyboard for this Qt::FocusReason.
    void focused(int reason);
    void fractionChanged();

protected:
    void focusInEvent(QFocusEvent *event) override
    {
        QQuickItem::focusInEvent(event);
        Q_EMIT focused(event->reason());
    }

private:
    double m_fraction = -1.0;
};

} // namespace quorvale
