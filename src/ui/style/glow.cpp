// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "glow.h"

#include <QPainter>

namespace quorvale {

Glow::Glow(QQuickItem *parent) : DrawnItem(parent) {}

void Glow::setRadius(qreal radius)
{
    if (change(m_radius, radius))
        Q_EMIT radiusChanged();
}

void Glow::setColor(const QColor &color)
{
    if (change(m_color, color))
        Q_EMIT colorChanged();
}

void Glow::setBlur(qreal blur)
{
    if (change(m_blur, blur))
        Q_EMIT blurChanged();
}

QRectF Glow::drawnRect() const
{
    return boundingRect();
}

void Glow::draw(QPainter &painter, qreal) const
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(m_color);
    painter.drawRoundedRect(boundingRect(), m_radius, m_radius);
}

} // namespace quorvale
