// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "drawnitem.h"

#include <QColor>

namespace quorvale {

/// The soft shadow, without offset, of a rectangle with round corners that has the item's place
/// and size. Reaches beyond the item on every side. All lengths are logical pixels.
class Glow : public quorvale::DrawnItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(qreal radius READ radius WRITE setRadius NOTIFY radiusChanged)
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged)
    Q_PROPERTY(qreal blur READ blur WRITE setBlur NOTIFY blurChanged)

public:
    explicit Glow(QQuickItem *parent = nullptr);

    /// Of the rectangle's corners; 0 at first. At most half of the shorter side counts.
    qreal radius() const { return m_radius; }
    void setRadius(qreal radius);

    /// Its alpha is the opacity where the shadow is deepest; black at first.
    QColor color() const { return m_color; }
    void setColor(const QColor &color);

    /// Twice the standard deviation of the Gaussian blur; 12 at first.
    qreal blur() const { return m_blur; }
    void setBlur(qreal blur);

    void draw(QPainter &painter, qreal pixel) const override;
    QRectF drawnRect() const override;

Q_SIGNALS:
    void radiusChanged();
    void colorChanged();
    void blurChanged();

private:
    qreal m_radius = 0;
    QColor m_color = Qt::black;
    qreal m_blur = 12;
};

} // namespace quorvale
