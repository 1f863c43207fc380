// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "glow.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

namespace quorvale {

namespace {

/// At this many standard deviations from the rectangle even a black shadow is invisible.
constexpr qreal reach = 3;

/// And what is further away than this from a place does not make its shadow deeper.
constexpr qreal influence = 4;

/// How much of a Gaussian bell around 0 lies between the two places.
qreal bellBetween(qreal from, qreal to, qreal deviation)
{
    const qreal scale = deviation * std::numbers::sqrt2;
    return (std::erf(to / scale) - std::erf(from / scale)) / 2;
}

/// The shadow of a rectangle around 0, 0. Blurred exactly along x, where each row is one stretch;
/// along y by rows as high as `pixel`.
class Shadow
{
public:
    Shadow(QSizeF size, qreal radius, qreal deviation, qreal pixel)
        : m_halfWidth(size.width() / 2), m_halfHeight(size.height() / 2),
          m_radius(std::clamp(radius, 0.0, std::min(m_halfWidth, m_halfHeight))),
          m_deviation(deviation), m_rowCount(std::max(1, qRound(size.height() / pixel))),
          m_rowHeight(size.height() / m_rowCount)
    {
    }

    /// Its depth, of 0 to 1, at the distance x from the middle, for each distance of `ys`.
    std::vector<qreal> column(qreal x, const std::vector<qreal> &ys) const
    {
        std::vector<qreal> rows;
        for (int row = 0; row < m_rowCount; ++row) {
            const qreal half = halfWidthAt(top(row) + m_rowHeight / 2);
            rows.push_back(bellBetween(x - half, x + half, m_deviation));
        }
        std::vector<qreal> depths;
        for (const qreal y : ys) {
            const auto rowAt = [&](qreal place) {
                return std::clamp(int((place + m_halfHeight) / m_rowHeight), 0, m_rowCount - 1);
            };
            const int last = rowAt(y + influence * m_deviation);
            qreal depth = 0;
            for (int row = rowAt(y - influence * m_deviation); row <= last; ++row)
                depth +=
                    rows[size_t(row)] * bellBetween(top(row) - y, top(row + 1) - y, m_deviation);
            depths.push_back(depth);
        }
        return depths;
    }

private:
    qreal top(int row) const { return row * m_rowHeight - m_halfHeight; }

    qreal halfWidthAt(qreal y) const
    {
        const qreal intoCorner = std::abs(y) - (m_halfHeight - m_radius);
        if (intoCorner <= 0)
            return m_halfWidth;
        return m_halfWidth - m_radius
               + std::sqrt(std::max(0.0, m_radius * m_radius - intoCorner * intoCorner));
    }

    const qreal m_halfWidth;
    const qreal m_halfHeight;
    const qreal m_radius;
    const qreal m_deviation;
    const int m_rowCount;
    const qreal m_rowHeight;
};

} // namespace

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
    if (boundingRect().isEmpty())
        return {};
    const qreal margin = std::max(0.0, reach * m_blur / 2);
    return boundingRect().marginsAdded({margin, margin, margin, margin});
}

void Glow::draw(QPainter &painter, qreal pixel) const
{
    const QRectF rect = drawnRect();
    if (rect.isEmpty())
        return;
    // A blur finer than the pixels would divide by 0 and look the same.
    const qreal deviation = std::max(m_blur / 2, pixel / 8);
    const Shadow shadow(size(), m_radius, deviation, pixel);

    // A quarter, of which the other three are mirror images.
    const QSize pixels(qCeil(rect.width() / pixel), qCeil(rect.height() / pixel));
    std::vector<qreal> ys(size_t(pixels.height() + 1) / 2);
    for (size_t y = 0; y < ys.size(); ++y)
        ys[y] = (qreal(y) + 0.5 - pixels.height() / 2.0) * pixel;
    QImage image(pixels, QImage::Format_ARGB32_Premultiplied);
    for (int x = 0; x < (pixels.width() + 1) / 2; ++x) {
        const std::vector<qreal> depths =
            shadow.column((x + 0.5 - pixels.width() / 2.0) * pixel, ys);
        for (int y = 0; y < int(ys.size()); ++y) {
            QColor color = m_color;
            color.setAlpha(qRound(m_color.alphaF() * 255 * depths[size_t(y)]));
            for (const int column : {x, pixels.width() - 1 - x}) {
                for (const int row : {y, pixels.height() - 1 - y})
                    image.setPixelColor(column, row, color);
            }
        }
    }
    const QSizeF drawn = QSizeF(pixels) * pixel;
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(QRectF(rect.center() - QPointF(drawn.width(), drawn.height()) / 2, drawn),
                      image);
}

} // namespace quorvale
