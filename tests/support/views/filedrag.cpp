// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "filedrag.h"

#include <QCoreApplication>
#include <QDragEnterEvent>
#include <QDragLeaveEvent>
#include <QDropEvent>

namespace quorvale::test {

namespace {

constexpr Qt::DropActions offered = Qt::CopyAction | Qt::MoveAction;

}

bool FileDrag::enter(QQuickItem *item, qreal x, qreal y, const QList<QUrl> &urls)
{
    m_data = std::make_unique<QMimeData>();
    m_data->setUrls(urls);
    return enter(*item, {x, y});
}

bool FileDrag::enterWithText(QQuickItem *item, qreal x, qreal y, const QString &text)
{
    m_data = std::make_unique<QMimeData>();
    m_data->setText(text);
    return enter(*item, {x, y});
}

bool FileDrag::enter(QQuickItem &item, QPointF place)
{
    m_window = item.window();
    m_place = item.mapToScene(place).toPoint();
    QDragEnterEvent enter(m_place, offered, m_data.get(), Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(m_window, &enter);
    return enter.isAccepted();
}

void FileDrag::leave()
{
    QDragLeaveEvent leave;
    QCoreApplication::sendEvent(m_window, &leave);
}

bool FileDrag::drop()
{
    QDropEvent drop(m_place, offered, m_data.get(), Qt::LeftButton, Qt::NoModifier);
    drop.setDropAction(Qt::MoveAction); // as file managers propose on one's own disk
    QCoreApplication::sendEvent(m_window, &drop);
    return drop.isAccepted() && drop.dropAction() == Qt::CopyAction;
}

} // namespace quorvale::test
