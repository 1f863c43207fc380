// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "drawnitem.h"

#include <QColor>
#include <QPainterPath>

namespace quorvale {

/// A rectangle with corners that leave the edges without a sudden bend. All lengths are logical
/// pixels.
///
/// The border is centred on the item's edge, so half of it lies outside the item. Where that would
/// split a device pixel, the border is moved inwards by half of one, and its width is rounded to
/// whole device pixels: an edge on whole pixels stays sharp.
class SmoothRectangle : public quorvale::DrawnItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(qreal radius READ radius WRITE setRadius NOTIFY radiusChanged)
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged)
    Q_PROPERTY(
        QColor endColor READ endColor WRITE setEndColor RESET resetEndColor NOTIFY endColorChanged)
    Q_PROPERTY(QColor borderColor READ borderColor WRITE setBorderColor NOTIFY borderColorChanged)
    Q_PROPERTY(qreal borderWidth READ borderWidth WRITE setBorderWidth NOTIFY borderWidthChanged)
    Q_PROPERTY(qreal dash READ dash WRITE setDash NOTIFY dashChanged)

public:
    explicit SmoothRectangle(QQuickItem *parent = nullptr);

    /// Of the corner at its middle; 0, at first, for a plain rectangle. At most half of the
    /// shorter side counts.
    qreal radius() const { return m_radius; }
    void setRadius(qreal radius);

    /// Of the inside, transparent at first.
    QColor color() const { return m_color; }
    void setColor(const QColor &color);

    /// With it the inside changes evenly from `color` in the top left corner to this in the bottom
    /// right corner; without (an invalid colour, at first) it is all `color`.
    QColor endColor() const { return m_endColor; }
    void setEndColor(const QColor &color);
    void resetEndColor() { setEndColor({}); }

    /// Black at first.
    QColor borderColor() const { return m_borderColor; }
    void setBorderColor(const QColor &color);

    /// 0, at first, for no border.
    qreal borderWidth() const { return m_borderWidth; }
    void setBorderWidth(qreal width);

    /// The length of each of the border's dashes and of each gap between them; 0, at first, for an
    /// unbroken border.
    qreal dash() const { return m_dash; }
    void setDash(qreal dash);

    void draw(QPainter &painter, qreal pixel) const override;
    QRectF drawnRect() const override;

    /// The outline of the rectangle with corners of the radius, clockwise from the end of the top
    /// left corner.
    static QPainterPath outline(const QRectF &rect, qreal radius);

Q_SIGNALS:
    void radiusChanged();
    void colorChanged();
    void endColorChanged();
    void borderColorChanged();
    void borderWidthChanged();
    void dashChanged();

private:
    void drawBorder(QPainter &painter, qreal pixel) const;

    qreal m_radius = 0;
    QColor m_color = Qt::transparent;
    QColor m_endColor;
    QColor m_borderColor = Qt::black;
    qreal m_borderWidth = 0;
    qreal m_dash = 0;
};

} // namespace quorvale
