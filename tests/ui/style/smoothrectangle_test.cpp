// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "smoothrectangle.h"

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

constexpr qreal margin = 10;

/// The largest change of the bend (the turn per length) along the path within a twentieth of the
/// radius, as a part of the bend of a circle of the radius.
qreal sharpestChangeOfBend(const QPainterPath &path, qreal radius)
{
    const qreal length = path.length();
    const int steps = int(length / (radius / 20));
    std::vector<qreal> bends;
    for (int i = 0; i < steps; ++i) {
        const auto angle = [&](int step) {
            return path.angleAtPercent((step + 0.5) / (steps + 1));
        };
        qreal turn = std::remainder(angle(i) - angle(i + 1), 360);
        bends.push_back(turn / 180 * std::numbers::pi / (length / (steps + 1)) * radius);
    }
    qreal sharpest = 0;
    for (size_t i = 1; i < bends.size(); ++i)
        sharpest = std::max(sharpest, std::abs(bends[i] - bends[i - 1]));
    return sharpest;
}

/// How far below the upper edge of a shape from 0, 0 its outline is at the place.
qreal depthBelowTop(const QPainterPath &path, qreal x)
{
    const QPainterPath column = [&] {
        QPainterPath line;
        line.addRect(x - 0.001, -1, 0.002, 40);
        return line;
    }();
    return path.intersected(column).boundingRect().top();
}

std::unique_ptr<SmoothRectangle> make(QSizeF size, qreal radius)
{
    auto item = std::make_unique<SmoothRectangle>();
    item->setSize(size);
    item->setRadius(radius);
    return item;
}

std::unique_ptr<SmoothRectangle> makeBordered(QSizeF size, qreal radius, qreal width)
{
    auto item = make(size, radius);
    item->setBorderWidth(width);
    return item;
}

/// The opacities, of 0 to 255, along the middle of the upper edge's border.
QList<int> alongTheTop(const SmoothRectangle &item, qreal ratio, int row)
{
    const QImage image = drawn(item, ratio, margin);
    QList<int> alphas;
    for (int x = int((margin + 40) * ratio); x < int((margin + 160) * ratio); ++x)
        alphas.append(qAlpha(image.pixel(x, row)));
    return alphas;
}

} // namespace

class SmoothRectangleTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(u".*"_s)); }

    void drawsNothingAtFirst()
    {
        QVERIFY(isAll(drawn(*make({50, 50}, 0), 1, margin), Qt::transparent));
        QCOMPARE(qAlpha(pixelAt(drawn(*make({50, 50}, 10), 1), {25, 25})), 0);
        auto empty = makeBordered({0, 50}, 10, 1);
        empty->setColor(Qt::red);
        QVERIFY(empty->drawnRect().isEmpty());
        QCOMPARE(qAlpha(pixelAt(drawn(*empty, 1, margin), {0, 25}, margin)), 0);
    }

    void fillsInOneColor()
    {
        auto item = make({50, 30}, 0);
        item->setColor(Qt::red);
        const QImage image = drawn(*item, 1, margin);
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const bool isInside = QRect(10, 10, 50, 30).contains(x, y);
                QCOMPARE(image.pixel(x, y), isInside ? QColor(Qt::red).rgba() : 0);
            }
        }
    }

    void fillsWithAGradientAlongTheDiagonal()
    {
        auto item = make({310, 640}, 0);
        item->setColor(Qt::red);
        item->setEndColor(Qt::blue);
        const auto isNear = [](QRgb found, QColor wanted) {
            return std::abs(qRed(found) - wanted.red()) <= 2
                   && std::abs(qGreen(found) - wanted.green()) <= 2
                   && std::abs(qBlue(found) - wanted.blue()) <= 2 && qAlpha(found) == 255;
        };
        const QImage image = drawn(*item, 1);
        QVERIFY(isNear(pixelAt(image, {0, 0}), Qt::red));
        QVERIFY(isNear(pixelAt(image, {309, 639}), Qt::blue));
        QVERIFY(isNear(pixelAt(image, {155, 320}), QColor(128, 0, 128)));
        // A quarter of the way, and across the diagonal from there.
        const QPointF quarter(310 / 4.0, 640 / 4.0);
        QVERIFY(isNear(pixelAt(image, quarter), QColor(191, 0, 64)));
        QVERIFY(isNear(pixelAt(image, quarter + QPointF(64, -31)), QColor(191, 0, 64)));

        item->resetEndColor();
        QVERIFY(isAll(drawn(*item, 1), Qt::red));
    }

    void keepsAnEdgeOnWholePixelsSharp_data()
    {
        QTest::addColumn<qreal>("width");
        QTest::addColumn<qreal>("ratio");
        QTest::addColumn<int>("first"); // row of device pixels, from the item's edge
        QTest::addColumn<int>("end");
        QTest::newRow("one, coarse: moved inwards") << 1.0 << 1.0 << 0 << 1;
        QTest::newRow("one, between: rounded") << 1.0 << 1.5 << -1 << 1;
        QTest::newRow("one, fine: centred") << 1.0 << 2.0 << -1 << 1;
        QTest::newRow("two, coarse: centred") << 2.0 << 1.0 << -1 << 1;
        QTest::newRow("two, fine: centred") << 2.0 << 2.0 << -2 << 2;
        QTest::newRow("a hair: one pixel") << 0.1 << 1.0 << 0 << 1;
    }
    void keepsAnEdgeOnWholePixelsSharp()
    {
        QFETCH(const qreal, width);
        QFETCH(const qreal, ratio);
        QFETCH(const int, first);
        QFETCH(const int, end);
        for (const qreal radius : {0.0, 18.0}) {
            const auto item = makeBordered({200, 100}, radius, width);
            const QImage image = drawn(*item, ratio, margin);
            const int edge = int(margin * ratio);
            for (int row = -8; row < 8; ++row) {
                const int expected = row >= first && row < end ? 255 : 0;
                QCOMPARE(qAlpha(image.pixel(image.width() / 2, edge + row)), expected);
                QCOMPARE(qAlpha(image.pixel(edge + row, image.height() / 2)), expected);
                const int fromEnd = edge + row + 1;
                QCOMPARE(qAlpha(image.pixel(image.width() / 2, image.height() - fromEnd)),
                         expected);
                QCOMPARE(qAlpha(image.pixel(image.width() - fromEnd, image.height() / 2)),
                         expected);
            }
        }
    }

    void drawsNothingOutsideItsDrawnRect()
    {
        for (const qreal width : {0.1, 1.0, 2.0, 5.0}) {
            for (const qreal ratio : {1.0, 1.5, 2.0}) {
                const auto item = makeBordered({60, 40}, 0, width);
                const QRectF covered = item->drawnRect().translated(margin, margin);
                const QImage image = drawn(*item, ratio, margin);
                for (int y = 0; y < image.height(); ++y) {
                    for (int x = 0; x < image.width(); ++x) {
                        if (qAlpha(image.pixel(x, y)))
                            QVERIFY(covered.contains(QPointF(x + 0.5, y + 0.5) / ratio));
                    }
                }
            }
        }
    }

    void fillsTheCornersOfAPlainBorder()
    {
        const QImage image = drawn(*makeBordered({60, 40}, 0, 4), 1, margin);
        for (const QPointF corner :
             {QPointF(-2, -2), QPointF(61, -2), QPointF(-2, 41), QPointF(61, 41)})
            QCOMPARE(qAlpha(pixelAt(image, corner, margin)), 255);
    }

    void breaksTheBorderIntoDashes_data()
    {
        QTest::addColumn<qreal>("width");
        QTest::addColumn<qreal>("ratio");
        QTest::addColumn<qreal>("radius");
        QTest::newRow("thin") << 1.0 << 1.0 << 18.0;
        QTest::newRow("thin, fine") << 1.0 << 2.0 << 18.0;
        QTest::newRow("thick") << 2.0 << 1.0 << 18.0;
        QTest::newRow("thick, fine") << 2.0 << 2.0 << 18.0;
        QTest::newRow("plain corners") << 2.0 << 1.0 << 0.0;
    }
    void breaksTheBorderIntoDashes()
    {
        QFETCH(const qreal, width);
        QFETCH(const qreal, ratio);
        QFETCH(const qreal, radius);
        auto item = makeBordered({200, 100}, radius, width);
        item->setDash(7);
        const QList<int> alphas = alongTheTop(*item, ratio, int(margin * ratio));
        const int dash = int(7 * ratio);
        for (int x = 0; x + 2 * dash < alphas.size(); ++x) {
            QVERIFY(std::abs(alphas[x] + alphas[x + dash] - 255) <= 4);
            QVERIFY(std::abs(alphas[x] - alphas[x + 2 * dash]) <= 4);
        }
        // One stretch of ink and one of none in each two dashes' length.
        const auto period = alphas.first(2 * dash);
        QVERIFY(std::count(period.begin(), period.end(), 255) >= dash - 1);
        QVERIFY(std::count(period.begin(), period.end(), 0) >= dash - 1);
        int changes = 0;
        for (int x = 1; x < 2 * dash; ++x)
            changes += (alphas[x] < 128) != (alphas[x - 1] < 128);
        QVERIFY(changes <= 2);

        item->setDash(0);
        const QList<int> solid = alongTheTop(*item, ratio, int(margin * ratio));
        QCOMPARE(std::count(solid.begin(), solid.end(), 255), solid.size());
    }

    void bendsContinuously()
    {
        constexpr qreal radius = 18;
        const QRectF rect(0, 0, 200, 100);
        const QPainterPath smooth = SmoothRectangle::outline(rect, radius);
        QPainterPath circular;
        circular.addRoundedRect(rect, radius, radius);
        QVERIFY(sharpestChangeOfBend(circular, radius) > 0.8);
        QVERIFY2(sharpestChangeOfBend(smooth, radius) < 0.3,
                 qPrintable(QString::number(sharpestChangeOfBend(smooth, radius))));
        QCOMPARE(smooth.pointAtPercent(0), QPointF(1.5 * radius, 0));
        QVERIFY(smooth.pointAtPercent(0.1).x() > 2 * radius);
        // The edge is left earlier, and the corner is as deep as a circle's.
        QVERIFY(depthBelowTop(smooth, radius) > 0.1);
        QVERIFY(depthBelowTop(circular, radius) < 0.01);
        QVERIFY(depthBelowTop(smooth, 1.6 * radius) < 0.001);
        const qreal middle = radius * (1 - std::numbers::sqrt2 / 2);
        QVERIFY(std::abs(depthBelowTop(smooth, middle) - middle) < 0.05);
    }

    void isSymmetric()
    {
        for (const qreal radius : {8.0, 18.0, 30.0}) {
            auto item = make({80, 80}, radius);
            item->setColor(Qt::black);
            item->setBorderColor(Qt::black);
            for (const qreal border : {0.0, 3.0}) {
                item->setBorderWidth(border);
                const QImage image = drawn(*item, 2, margin);
                QVERIFY(isSame(image, image.mirrored(true, false)));
                QVERIFY(isSame(image, image.mirrored(false, true)));
                QVERIFY(isSame(image, image.transformed(QTransform(0, 1, 1, 0, 0, 0))));
            }
        }
    }

    void degradesToACircle_data()
    {
        QTest::addColumn<QSizeF>("size");
        QTest::addColumn<qreal>("radius");
        QTest::newRow("just") << QSizeF(30, 30) << 15.0;
        QTest::newRow("too large") << QSizeF(30, 30) << 100.0;
    }
    void degradesToACircle()
    {
        QFETCH(const QSizeF, size);
        QFETCH(const qreal, radius);
        const QPainterPath path = SmoothRectangle::outline(QRectF({0, 0}, size), radius);
        for (int i = 0; i < 100; ++i) {
            const QPointF point = path.pointAtPercent(i / 100.0) - QPointF(15, 15);
            QVERIFY(std::abs(std::hypot(point.x(), point.y()) - 15) < 0.02);
        }
    }

    void staysInsideASmallItem()
    {
        for (qreal side = 1; side < 60; side += 0.7) {
            const QRectF rect(0, 0, side, 2 * side);
            const QPainterPath path = SmoothRectangle::outline(rect, 18);
            const QRectF bounds = path.boundingRect();
            QVERIFY(rect.adjusted(-0.001, -0.001, 0.001, 0.001).contains(bounds));
            QVERIFY(std::abs(bounds.width() - side) < 0.001);
            QVERIFY(std::abs(bounds.height() - 2 * side) < 0.001);
            QVERIFY(path.contains(rect.center()));
        }
    }

    void appearsInTheWindow()
    {
        Stage stage;
        QQuickItem &item = stage.show("SmoothRectangle { width: 60; height: 40; radius: 10; "
                                      "color: 'red'; borderWidth: 4; borderColor: 'blue' }");
        const QImage picture = stage.picture();
        QCOMPARE(pixelAt(picture, {17, 40}), QColor(Qt::white).rgb());
        QCOMPARE(pixelAt(picture, {18.5, 40}), QColor(Qt::blue).rgb());
        QCOMPARE(pixelAt(picture, {21, 40}), QColor(Qt::blue).rgb());
        QCOMPARE(pixelAt(picture, {23, 40}), QColor(Qt::red).rgb());
        QCOMPARE(pixelAt(picture, {81, 40}), QColor(Qt::blue).rgb());
        QCOMPARE(pixelAt(picture, {20.5, 20.5}), QColor(Qt::white).rgb());

        item.setWidth(100);
        item.setProperty("color", QColor(Qt::green));
        item.setProperty("endColor", QColor(Qt::green));
        item.setProperty("borderWidth", 0);
        QCOMPARE(pixelAt(stage.picture(), {119, 40}), QColor(Qt::green).rgb());
        QCOMPARE(pixelAt(stage.picture(), {18.5, 40}), QColor(Qt::white).rgb());
        // Its round corners are smooth there, too.
        QVERIFY(countMixed(stage.picture(), Qt::green) > 0);

        item.setWidth(120);
        QCOMPARE(pixelAt(stage.picture(), {139, 40}), QColor(Qt::green).rgb());

        // Changed while it is hidden.
        item.setVisible(false);
        QVERIFY(isAll(stage.picture(), Qt::white));
        item.setProperty("color", QColor(Qt::red));
        item.setProperty("endColor", QColor(Qt::red));
        QVERIFY(isAll(stage.picture(), Qt::white));
        item.setVisible(true);
        QCOMPARE(pixelAt(stage.picture(), {70, 40}), QColor(Qt::red).rgb());
    }

private:
    // The pixels that are neither white nor of the colour.
    static int countMixed(const QImage &image, const QColor &color)
    {
        const QRgb white = QColor(Qt::white).rgb();
        int count = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const QRgb pixel = image.pixel(x, y);
                count += pixel != white && pixel != color.rgb() ? 1 : 0;
            }
        }
        return count;
    }

    static bool isSame(const QImage &one, const QImage &other)
    {
        for (int y = 0; y < one.height(); ++y) {
            for (int x = 0; x < one.width(); ++x) {
                // The rasteriser does not treat both directions alike to the last bit.
                if (std::abs(qAlpha(one.pixel(x, y)) - qAlpha(other.pixel(x, y))) > 8)
                    return false;
            }
        }
        return true;
    }
};

QUORVALE_TEST(SmoothRectangleTest)
#include "smoothrectangle_test.moc"
