// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "glow.h"

#include "support/stage.h"
#include "support/testclass.h"

#include <QPainterPath>
#include <QRegularExpression>
#include <QTest>

#include <numbers>

using namespace quorvale;
using namespace quorvale::test;
using namespace Qt::StringLiterals;

namespace {

constexpr qreal margin = 30;

std::unique_ptr<Glow> make(QSizeF size, qreal radius, qreal blur)
{
    auto glow = std::make_unique<Glow>();
    glow->setSize(size);
    glow->setRadius(radius);
    glow->setBlur(blur);
    return glow;
}

qreal depthAt(const QImage &image, QPointF place)
{
    return qAlpha(pixelAt(image, place, margin)) / 255.0;
}

/// The Gaussian blur of the rounded rectangle at the place, summed up point by point.
qreal blurredByHand(QSizeF size, qreal radius, qreal deviation, QPointF place)
{
    QPainterPath shape;
    shape.addRoundedRect(QRectF({0, 0}, size), radius, radius);
    constexpr qreal step = 0.2;
    qreal sum = 0;
    for (qreal y = step / 2; y < size.height(); y += step) {
        for (qreal x = step / 2; x < size.width(); x += step) {
            const QPointF away = QPointF(x, y) - place;
            if (shape.contains({x, y}))
                sum += std::exp(-QPointF::dotProduct(away, away) / (2 * deviation * deviation));
        }
    }
    return sum * step * step / (2 * std::numbers::pi * deviation * deviation);
}

} // namespace

class GlowTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(u".*"_s)); }

    void fallsOffAsABell()
    {
        for (const qreal ratio : {1.0, 1.5, 2.0}) {
            const QImage image = drawn(*make({120, 100}, 12, 12), ratio, margin);
            // The middle of the pixel that is looked at.
            const qreal pixel = 0.5 / ratio;
            const auto bell = [&](qreal distance) {
                return std::erfc((distance + pixel) / (6 * std::numbers::sqrt2)) / 2;
            };
            QVERIFY(depthAt(image, {60, 50}) > 0.99);
            for (const qreal distance : {0.0, 4.0, 6.0, 12.0}) {
                const qreal depth = depthAt(image, {120 + distance, 50});
                QVERIFY2(std::abs(depth - bell(distance)) < 0.006,
                         qPrintable(u"%1 at %2"_s.arg(depth).arg(distance)));
            }
            QVERIFY(depthAt(image, {120 + 18.5, 50}) < 0.005);
        }
    }

    void isTheBlurOfTheRoundRectangle()
    {
        for (const qreal radius : {0.0, 5.0, 100.0}) {
            const QImage image = drawn(*make({24, 16}, radius, 6), 2, margin);
            const qreal used = std::min(radius, 8.0);
            for (const QPointF place : {QPointF(12, 8), QPointF(0, 0), QPointF(2, 2),
                                        QPointF(26, 8), QPointF(25, 17), QPointF(4, 16)}) {
                const QPointF middle = place + QPointF(0.25, 0.25);
                const qreal expected = blurredByHand({24, 16}, used, 3, middle);
                QVERIFY2(std::abs(depthAt(image, place) - expected) < 0.008,
                         qPrintable(u"%1 for %2"_s.arg(depthAt(image, place)).arg(expected)));
            }
        }
    }

    void isSymmetric()
    {
        for (const qreal ratio : {1.0, 1.5, 2.0}) {
            const QImage image = drawn(*make({44, 44}, 12, 12), ratio, margin);
            QCOMPARE(image, image.mirrored(true, false));
            QCOMPARE(image, image.mirrored(false, true));
            const QImage turned = image.transformed(QTransform(0, 1, 1, 0, 0, 0));
            for (int y = 0; y < image.height(); ++y) {
                for (int x = 0; x < image.width(); ++x) {
                    const int off = qAlpha(image.pixel(x, y)) - qAlpha(turned.pixel(x, y));
                    QVERIFY(std::abs(off) <= 1);
                }
            }
        }
    }

    void isOfItsColorAndOpacity()
    {
        auto glow = make({60, 60}, 12, 12);
        const QColor color(0x99, 0x33, 0xcc, 89);
        glow->setColor(color);
        const QImage image = drawn(*glow, 1, margin);
        QVERIFY(isAll(image, color));
        QCOMPARE(qAlpha(pixelAt(image, {30, 30}, margin)), 89);
        const int edge = qAlpha(pixelAt(image, {60, 30}, margin));
        QVERIFY(edge > 38 && edge < 45);
    }

    void isSharpWithoutABlur()
    {
        const QImage image = drawn(*make({40, 30}, 0, 0), 1, margin);
        QVERIFY(depthAt(image, {39, 15}) > 0.99);
        QVERIFY(depthAt(image, {40, 15}) < 0.01);
        QVERIFY(depthAt(image, {0, 0}) > 0.99);
    }

    void drawsNothingWithoutASize()
    {
        const auto glow = make({0, 30}, 0, 12);
        QVERIFY(glow->drawnRect().isEmpty());
        QVERIFY(isAll(drawn(*glow, 1, margin), Qt::transparent));
    }

    void reachesOverTheItemInTheWindow()
    {
        Stage stage;
        QQuickItem &item = stage.show("Glow { width: 60; height: 60; blur: 12; color: 'red' }");
        const QImage picture = stage.picture();
        QCOMPARE(pixelAt(picture, {50, 50}), QColor(Qt::red).rgb());
        const auto greenAt = [](const QImage &image, QPointF place) {
            return qGreen(pixelAt(image, place));
        };
        QVERIFY(greenAt(picture, {84, 50}) > 120);
        QVERIFY(greenAt(picture, {84, 50}) < 220);
        QVERIFY(std::abs(greenAt(picture, {84, 50}) - greenAt(picture, {15.6, 50})) <= 2);
        QCOMPARE(greenAt(picture, {100, 50}), 255);

        item.setProperty("color", QColor(Qt::blue));
        QCOMPARE(pixelAt(stage.picture(), {50, 50}), QColor(Qt::blue).rgb());
        item.setProperty("blur", 2);
        QVERIFY(greenAt(stage.picture(), {84, 50}) > 250);
        item.setProperty("radius", 30);
        QVERIFY(greenAt(stage.picture(), {24, 24}) > 250);
    }
};

QUORVALE_TEST(GlowTest)
#include "glow_test.moc"
