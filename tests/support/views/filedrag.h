// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QMimeData>
#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QQuickItem>
#include <QQuickWindow>
#include <QtQmlIntegration>

#include <memory>

namespace quorvale::test {

/// A drag from another program, one at a time, as the platform tells the window of it. Main thread.
class FileDrag : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    using QObject::QObject;

    /// Brings URLs to a place of the item; whether they may be dropped there.
    Q_INVOKABLE bool enter(QQuickItem *item, qreal x, qreal y, const QList<QUrl> &urls);
    /// The same with a text.
    Q_INVOKABLE bool enterWithText(QQuickItem *item, qreal x, qreal y, const QString &text);

    Q_INVOKABLE void leave();

    /// Whether the window took what was dropped, which it may only do by copying it.
    Q_INVOKABLE bool drop();

private:
    bool enter(QQuickItem &item, QPointF place);

    std::unique_ptr<QMimeData> m_data;
    QPointer<QQuickWindow> m_window;
    QPoint m_place;
};

} // namespace quorvale::test
