// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "smoothrectangle.h"

#include <QPainter>

#include <cmath>
#include <numbers>

namespace quorvale {

namespace {

/// How far a fully smooth corner reaches along each edge beyond its radius, as a part of it.
constexpr qreal reachBeyondRadius = 0.5;

/// How much more a fully smooth corner bends at its middle than a circle of its radius. With this
/// the bend grows all the way there.
constexpr qreal extraBend = 0.3;

/// The top left corner, from the left edge to the top edge, in a rectangle that begins at 0, 0.
///
/// On each side a cubic curve leaves the edge straight and bends more and more, up to the bend of
/// an arc around the corner's middle that it meets after a turn by `turn`. In full smoothness the
/// two curves meet each other and nothing is left of the arc; without any it is a quarter of a
/// circle. The middle of the corner stays where that circle has it.
///
/// Each curve has three of its four points on the edge, for a bend of 0 at the start. With a last
/// handle of the length c, the bend at its end is 2/3 b sin(turn) / c², where b is the distance of
/// its middle points: that is to be the bend of the arc.
QPainterPath topLeftCorner(qreal radius, qreal smoothness)
{
    constexpr qreal half = std::numbers::sqrt2 / 2;
    const qreal turn = smoothness * std::numbers::pi / 4;
    const qreal reach = radius * (1 + reachBeyondRadius * smoothness);
    const qreal arcRadius = radius / (1 + extraBend * smoothness * smoothness);
    const qreal arcCentre = arcRadius * half + radius * (1 - half);

    const QPointF onArc(arcCentre - arcRadius * std::cos(turn),
                        arcCentre - arcRadius * std::sin(turn));
    const qreal c = turn > 0 ? onArc.x() / std::sin(turn) : 0;
    const qreal b = turn > 0 ? 3 * c * c / (2 * arcRadius * std::sin(turn)) : 0;
    const qreal third = onArc.y() + c * std::cos(turn);
    const qreal second = third + b;

    QPainterPath path(QPointF(0, reach));
    path.cubicTo(QPointF(0, second), QPointF(0, third), onArc);
    // Not arcTo, whose end is a little off: a stroke would show the gap.
    const qreal handle = arcRadius * 4 / 3 * std::tan((std::numbers::pi / 2 - 2 * turn) / 4);
    const QPointF along = handle * QPointF(std::sin(turn), -std::cos(turn));
    const QPointF arcEnd = onArc.transposed();
    path.cubicTo(onArc + along, arcEnd - QPointF(-along.y(), -along.x()), arcEnd);
    path.cubicTo(QPointF(third, 0), QPointF(second, 0), QPointF(reach, 0));
    return path;
}

} // namespace

SmoothRectangle::SmoothRectangle(QQuickItem *parent) : DrawnItem(parent) {}

void SmoothRectangle::setRadius(qreal radius)
{
    if (change(m_radius, radius))
        Q_EMIT radiusChanged();
}

void SmoothRectangle::setColor(const QColor &color)
{
    if (change(m_color, color))
        Q_EMIT colorChanged();
}

void SmoothRectangle::setEndColor(const QColor &color)
{
    if (change(m_endColor, color))
        Q_EMIT endColorChanged();
}

void SmoothRectangle::setBorderColor(const QColor &color)
{
    if (change(m_borderColor, color))
        Q_EMIT borderColorChanged();
}

void SmoothRectangle::setBorderWidth(qreal width)
{
    if (change(m_borderWidth, width))
        Q_EMIT borderWidthChanged();
}

void SmoothRectangle::setDash(qreal dash)
{
    if (change(m_dash, dash))
        Q_EMIT dashChanged();
}

QRectF SmoothRectangle::drawnRect() const
{
    if (boundingRect().isEmpty())
        return {};
    // A whole one more than half the width, for the rounding of the width.
    const qreal margin = m_borderWidth > 0 ? m_borderWidth / 2 + 1 : 0;
    return boundingRect().marginsAdded({margin, margin, margin, margin});
}

QPainterPath SmoothRectangle::outline(const QRectF &rect, qreal radius)
{
    const qreal half = std::min(rect.width(), rect.height()) / 2;
    const qreal used = std::clamp(radius, 0.0, half);
    QPainterPath path;
    if (used <= 0) {
        path.addRect(rect);
        return path;
    }
    // A small item has too short edges for the whole curve: down to the plain quarter circle.
    const qreal smoothness = std::min(1.0, (half / used - 1) / reachBeyondRadius);
    const QPainterPath corner = topLeftCorner(used, smoothness);
    const auto add = [&](QPointF origin, qreal xX, qreal xY, qreal yX, qreal yY) {
        path.connectPath(QTransform(xX, xY, yX, yY, origin.x(), origin.y()).map(corner));
    };
    const QPointF reach(corner.currentPosition().x(), 0);
    path.moveTo(rect.topLeft() + reach);
    path.lineTo(rect.topRight() - reach);
    // Each is the one before turned by a quarter.
    add(rect.topRight(), 0, 1, -1, 0);
    add(rect.bottomRight(), -1, 0, 0, -1);
    add(rect.bottomLeft(), 0, -1, 1, 0);
    add(rect.topLeft(), 1, 0, 0, 1);
    path.closeSubpath();
    return path;
}

void SmoothRectangle::draw(QPainter &painter, qreal pixel) const
{
    const QRectF rect = boundingRect();
    if (rect.isEmpty())
        return;
    QBrush inside(m_color);
    if (m_endColor.isValid()) {
        QLinearGradient gradient(rect.topLeft(), rect.bottomRight());
        gradient.setStops({{0, m_color}, {1, m_endColor}});
        inside = gradient;
    }
    if (m_radius > 0)
        painter.fillPath(outline(rect, m_radius), inside);
    else
        painter.fillRect(rect, inside);
    if (m_borderWidth > 0)
        drawBorder(painter, pixel);
}

void SmoothRectangle::drawBorder(QPainter &painter, qreal pixel) const
{
    const int pixels = std::max(1, qRound(m_borderWidth / pixel));
    const qreal width = pixels * pixel;
    const qreal inset = pixels % 2 == 0 ? 0 : pixel / 2;
    QPen pen(m_borderColor, width, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin);
    pen.setMiterLimit(10);
    if (m_dash > 0)
        pen.setDashPattern({m_dash / width, m_dash / width}); // counted in widths
    painter.strokePath(
        outline(boundingRect().marginsRemoved({inset, inset, inset, inset}), m_radius - inset),
        pen);
}

} // namespace quorvale
