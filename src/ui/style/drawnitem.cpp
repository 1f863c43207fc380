// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "drawnitem.h"

#include <QPainter>
#include <QQuickWindow>
#include <QSGImageNode>

#include <cmath>
#include <memory>

namespace quorvale {

DrawnItem::DrawnItem(QQuickItem *parent) : QQuickItem(parent)
{
    setFlag(ItemHasContents);
}

QRectF DrawnItem::drawnRect() const
{
    return boundingRect();
}

QSGNode *DrawnItem::updatePaintNode(QSGNode *old, UpdatePaintNodeData *)
{
    std::unique_ptr<QSGNode> previous(old);
    const QRectF rect = drawnRect();
    if (rect.isEmpty() || !isVisible()) // Qt asks hidden items too
        return nullptr;

    // Whole device pixels, so that each pixel of the image becomes one of the window.
    const qreal ratio = window()->effectiveDevicePixelRatio();
    const QPoint first(qFloor(rect.left() * ratio), qFloor(rect.top() * ratio));
    const QPoint end(qCeil(rect.right() * ratio), qCeil(rect.bottom() * ratio));
    const QSize pixels(end.x() - first.x(), end.y() - first.y());
    QImage image(pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    {
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.translate(-first);
        painter.scale(ratio, ratio);
        draw(painter, 1 / ratio);
    }

    auto *node = static_cast<QSGImageNode *>(previous.release());
    if (!node) {
        node = window()->createImageNode();
        node->setOwnsTexture(true);
        node->setFiltering(QSGTexture::Linear);
    }
    node->setTexture(window()->createTextureFromImage(image));
    node->setRect(QRectF(QPointF(first) / ratio, QSizeF(pixels) / ratio));
    return node;
}

void DrawnItem::itemChange(ItemChange change, const ItemChangeData &value)
{
    if (change == ItemDevicePixelRatioHasChanged || change == ItemVisibleHasChanged)
        update();
    QQuickItem::itemChange(change, value);
}

void DrawnItem::geometryChange(const QRectF &now, const QRectF &before)
{
    QQuickItem::geometryChange(now, before);
    if (now.size() != before.size())
        update();
}

} // namespace quorvale
