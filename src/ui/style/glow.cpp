// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "glow.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <numeric>
#include <utility>
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
    /// To be seen at the heights `ys`.
    Shadow(QSizeF size, qreal radius, qreal deviation, qreal pixel, const std::vector<qreal> &ys)
        : m_halfWidth(size.width() / 2), m_halfHeight(size.height() / 2),
          m_radius(std::clamp(radius, 0.0, std::min(m_halfWidth, m_halfHeight))),
          m_deviation(deviation), m_rowCount(std::max(1, qRound(size.height() / pixel))),
          m_rowHeight(size.height() / m_rowCount)
    {
        m_views.reserve(ys.size());
        for (const qreal y : ys)
            m_views.push_back(viewFrom(y));
    }

    /// Its depth, of 0 to 1, at the distance x from the middle, for each of the heights.
    std::vector<qreal> column(qreal x) const
    {
        std::vector<qreal> rows(size_t(m_rowCount), 0);
        qreal half = -1;
        qreal depth = 0;
        for (int row = 0; row < m_rowCount; ++row) {
            // Between the corners it is that of the row above.
            const qreal above = std::exchange(half, halfWidthAt(top(row) + m_rowHeight / 2));
            if (half != above)
                depth = bellBetween(x - half, x + half, m_deviation);
            rows[size_t(row)] = depth;
        }
        std::vector<qreal> depths;
        depths.reserve(m_views.size());
        for (const View &view : m_views)
            depths.push_back(std::inner_product(view.weights.begin(), view.weights.end(),
                                                rows.begin() + view.firstRow, 0.0));
        return depths;
    }

private:
    /// How much each row that matters at a height counts there.
    struct View
    {
        int firstRow;
        std::vector<qreal> weights;
    };

    View viewFrom(qreal y) const
    {
        const auto rowAt = [&](qreal place) {
            return std::clamp(int((place + m_halfHeight) / m_rowHeight), 0, m_rowCount - 1);
        };
        View view{.firstRow = rowAt(y - influence * m_deviation), .weights = {}};
        const int last = rowAt(y + influence * m_deviation);
        view.weights.reserve(size_t(last) + 1 - size_t(view.firstRow));
        for (int row = view.firstRow; row <= last; ++row)
            view.weights.push_back(bellBetween(top(row) - y, top(row + 1) - y, m_deviation));
        return view;
    }

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
    std::vector<View> m_views;
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
    // A quarter, of which the other three are mirror images.
    const QSize pixels(qCeil(rect.width() / pixel), qCeil(rect.height() / pixel));
    std::vector<qreal> ys(size_t(pixels.height() + 1) / 2);
    for (size_t y = 0; y < ys.size(); ++y)
        ys[y] = (qreal(y) + 0.5 - pixels.height() / 2.0) * pixel;
    const Shadow shadow(size(), m_radius, deviation, pixel, ys);
    QImage image(pixels, QImage::Format_ARGB32_Premultiplied);
    for (int x = 0; x < (pixels.width() + 1) / 2; ++x) {
        const std::vector<qreal> depths = shadow.column((x + 0.5 - pixels.width() / 2.0) * pixel);
        for (int y = 0; y < int(ys.size()); ++y) {
            QColor color = m_color;
            color.setAlpha(qRound(m_color.alphaF() * 255 * depths[size_t(y)]));
            const QRgb shade = color.rgba64().premultiplied().toArgb32();
            for (const int column : {x, pixels.width() - 1 - x}) {
                for (const int row : {y, pixels.height() - 1 - y})
                    image.setPixel(column, row, shade);
            }
        }
    }
    const QSizeF drawn = QSizeF(pixels) * pixel;
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(QRectF(rect.center() - QPointF(drawn.width(), drawn.height()) / 2, drawn),
                      image);
}

} // namespace quorvale
