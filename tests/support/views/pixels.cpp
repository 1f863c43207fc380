// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "pixels.h"

#include <QHash>

#include <algorithm>
#include <cmath>

namespace quorvale::test {

namespace {

double linear(double part)
{
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

double luminance(const QColor &color)
{
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF())
           + 0.0722 * linear(color.blueF());
}

double ratio(const QColor &a, const QColor &b)
{
    const auto [dark, light] = std::minmax({luminance(a), luminance(b)});
    return (light + 0.05) / (dark + 0.05);
}

QColor over(const QColor &below, const QColor &above, double opacity)
{
    const auto alpha = static_cast<float>(above.alphaF() * opacity);
    const auto mix = [alpha](float b, float a) {
        return b + (a - b) * alpha;
    };
    return QColor::fromRgbF(mix(below.redF(), above.redF()), mix(below.greenF(), above.greenF()),
                            mix(below.blueF(), above.blueF()));
}

double shownOpacity(const QQuickItem &item)
{
    double opacity = 1;
    for (const QQuickItem *i = &item; i; i = i->parentItem())
        opacity *= i->opacity();
    return opacity;
}

} // namespace

QImage Pixels::picture(QQuickItem &item, qreal margin)
{
    const QRectF area =
        item.mapRectToScene(QRectF({}, item.size())).adjusted(-margin, -margin, margin, margin);
    return item.window()->grabWindow().convertToFormat(QImage::Format_RGB32).copy(area.toRect());
}

QColor Pixels::at(QQuickItem *item, qreal x, qreal y)
{
    const QPoint place = item->mapToScene({x, y}).toPoint();
    return item->window()->grabWindow().pixelColor(place);
}

QColor Pixels::around(QQuickItem *item)
{
    const QImage image = picture(*item, 1);
    QHash<QRgb, int> counts;
    for (int x = 0; x < image.width(); ++x) {
        ++counts[image.pixel(x, 0)];
        ++counts[image.pixel(x, image.height() - 1)];
    }
    for (int y = 0; y < image.height(); ++y) {
        ++counts[image.pixel(0, y)];
        ++counts[image.pixel(image.width() - 1, y)];
    }
    return QColor::fromRgb(std::max_element(counts.cbegin(), counts.cend()).key());
}

double Pixels::contrast(QQuickItem *item, const QColor &color)
{
    const QColor below = around(item);
    return ratio(over(below, color, shownOpacity(*item)), below);
}

double Pixels::contrastBetween(const QColor &one, const QColor &other, const QColor &below)
{
    return ratio(over(below, one, 1), over(below, other, 1));
}

double Pixels::drawnContrast(QQuickItem *item)
{
    const QColor below = around(item);
    const QImage image = picture(*item, 0);
    double most = 1;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            most = std::max(most, ratio(image.pixelColor(x, y), below));
    }
    return most;
}

QRectF Pixels::drawnArea(QQuickItem *item, const QColor &color)
{
    const auto distance = [](const QColor &a, const QColor &b) {
        return std::abs(a.red() - b.red()) + std::abs(a.green() - b.green())
               + std::abs(a.blue() - b.blue());
    };
    const QColor below = around(item);
    const QImage image = picture(*item, 0);
    QRect found;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor shown = image.pixelColor(x, y);
            if (distance(shown, color) < distance(shown, below))
                found |= QRect(x, y, 1, 1);
        }
    }
    return found;
}

int Pixels::count(QQuickItem *item, const QColor &color)
{
    const QImage image = picture(*item, 0);
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        const auto *line = reinterpret_cast<const QRgb *>(image.constScanLine(y));
        count += static_cast<int>(std::count(line, line + image.width(), color.rgb()));
    }
    return count;
}

} // namespace quorvale::test
