// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "support/testclass.h"
#include "symbol.h"

#include "support/stage.h"

#include <QMetaEnum>
#include <QPainter>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>

using namespace quorvale;
using namespace quorvale::test;
using namespace Qt::StringLiterals;

namespace {

const QColor ink(0x33, 0x66, 0x99);

/// The side of the grid that the symbols are drawn on.
constexpr qreal grid = 24;

QList<Symbol::Name> allNames()
{
    const auto names = QMetaEnum::fromType<Symbol::Name>();
    QList<Symbol::Name> all;
    for (int i = 0; i < names.keyCount(); ++i) {
        if (const auto name = Symbol::Name(names.value(i)); name != Symbol::Name::None)
            all.append(name);
    }
    return all;
}

void addNameRows()
{
    QTest::addColumn<Symbol::Name>("name");
    const auto names = QMetaEnum::fromType<Symbol::Name>();
    for (const Symbol::Name name : allNames())
        QTest::newRow(names.valueToKey(int(name))) << name;
}

std::unique_ptr<Symbol> make(Symbol::Name name, qreal side = grid)
{
    auto symbol = std::make_unique<Symbol>();
    symbol->setName(name);
    symbol->setColor(ink);
    symbol->setSide(side);
    return symbol;
}

/// The smallest rectangle, in logical pixels, that holds all that is not quite transparent.
QRectF bounds(const QImage &image)
{
    QRect found;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)) > 40)
                found |= QRect(x, y, 1, 1);
        }
    }
    const qreal ratio = image.devicePixelRatio();
    return {QPointF(found.topLeft()) / ratio, QSizeF(found.size()) / ratio};
}

/// How much of the area, in squares of the grid, is covered in one but not in the other.
qreal difference(const QImage &one, const QImage &other)
{
    qreal sum = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x)
            sum += std::abs(qAlpha(one.pixel(x, y)) - qAlpha(other.pixel(x, y)));
    }
    return sum / 255 / (one.devicePixelRatio() * one.devicePixelRatio());
}

class CountedSymbol : public Symbol
{
public:
    mutable int count = 0;

    void draw(QPainter &painter, qreal pixel) const override
    {
        ++count;
        Symbol::draw(painter, pixel);
    }
};

} // namespace

class SymbolTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(u".*"_s)); }

    void drawsInItsColorAndBounds_data() { addNameRows(); }
    void drawsInItsColorAndBounds()
    {
        QFETCH(const Symbol::Name, name);
        for (const qreal side : {12.0, 16.0, 24.0, 35.0}) {
            for (const qreal ratio : {1.0, 1.5, 2.0}) {
                const auto symbol = make(name, side);
                const QImage image = drawn(*symbol, ratio, 4);
                QVERIFY(isAll(image, ink));
                const QRectF found = bounds(image);
                QVERIFY(!found.isEmpty());
                QVERIFY(QRectF(4, 4, side, side).contains(found));
            }
        }
    }

    void isCentredAndOfTheCommonSize_data() { addNameRows(); }
    void isCentredAndOfTheCommonSize()
    {
        QFETCH(const Symbol::Name, name);
        const QRectF found = bounds(drawn(*make(name), 8));
        const QPointF off = found.center() - QPointF(grid / 2, grid / 2);
        QVERIFY2(std::abs(off.x()) <= 0.5, qPrintable(QString::number(off.x())));
        QVERIFY2(std::abs(off.y()) <= 1, qPrintable(QString::number(off.y())));
        const qreal longer = std::max(found.width(), found.height());
        QVERIFY2(longer >= 16 && longer <= 20.25, qPrintable(QString::number(longer)));
    }

    void differsFromEveryOther_data() { addNameRows(); }
    void differsFromEveryOther()
    {
        QFETCH(const Symbol::Name, name);
        const QImage image = drawn(*make(name), 2);
        for (const Symbol::Name other : allNames())
            QCOMPARE(difference(image, drawn(*make(other), 2)) < 20, other == name);
    }

    void noneDrawsNothing()
    {
        const auto symbol = make(Symbol::Name::None);
        QVERIFY(symbol->drawnRect().isEmpty());
        QCOMPARE(symbol->implicitWidth(), grid);
        QVERIFY(isAll(drawn(*symbol, 1, 4), Qt::transparent));
        QVERIFY(bounds(drawn(*symbol, 1, 4)).isEmpty());

        Stage stage;
        QQuickItem &item = stage.show("Symbol { name: Symbol.Film }");
        QVERIFY(!isAll(stage.picture(), Qt::white));
        item.setProperty("name", QVariant::fromValue(Symbol::Name::None));
        QVERIFY(isAll(stage.picture(), Qt::white));
    }

    void hasRealHoles_data()
    {
        QTest::addColumn<Symbol::Name>("name");
        QTest::addColumn<QList<QPointF>>("holes");
        QTest::newRow("checkmark in a circle")
            << Symbol::Name::CheckmarkCircleFill << QList<QPointF>{{10.75, 15.5}, {15.5, 9.5}};
        QTest::newRow("x in a circle")
            << Symbol::Name::XmarkCircleFill << QList<QPointF>{{12, 12}, {9.5, 9.5}, {14.5, 9.5}};
        QTest::newRow("circular arrow")
            << Symbol::Name::ArrowClockwiseCircleFill << QList<QPointF>{{7.25, 12.5}, {12, 17.25}};
        QTest::newRow("arrow in a document")
            << Symbol::Name::ArrowDownDocFill << QList<QPointF>{{12, 14}, {12, 18.5}, {13, 5}};
    }
    void hasRealHoles()
    {
        QFETCH(const Symbol::Name, name);
        QFETCH(const QList<QPointF>, holes);
        const QImage image = drawn(*make(name), 4);
        QCOMPARE(qAlpha(pixelAt(image, {8, 20.5})), 255);
        for (const QPointF hole : holes)
            QCOMPARE(qAlpha(pixelAt(image, hole)), 0);
    }

    void usesEveryPixelOfAFineScreen()
    {
        // The left side of the frame goes from 3 to 5 on the grid.
        const QImage image = drawn(*make(Symbol::Name::HSquare), 2);
        for (int x = 0; x < 14; ++x)
            QCOMPARE(qAlpha(image.pixel(x, 24)), x >= 6 && x < 10 ? 255 : 0);
        // A slanted line is finer than one drawn for a coarse screen and enlarged.
        const QImage coarse = drawn(*make(Symbol::Name::Checkmark), 1);
        const QImage fine = drawn(*make(Symbol::Name::Checkmark), 2);
        QImage enlarged = coarse.scaled(fine.size());
        enlarged.setDevicePixelRatio(2);
        QVERIFY(difference(fine, enlarged) > 4);
    }

    void appearsInTheWindow()
    {
        Stage stage;
        stage.show("Symbol { name: Symbol.HSquare; color: '#336699'; size: 24 }");
        const QImage picture = stage.picture();
        QCOMPARE(pixelAt(picture, {24, 32}), ink.rgb());
        QCOMPARE(pixelAt(picture, {22.5, 32}), QColor(Qt::white).rgb());
        QCOMPARE(pixelAt(picture, {25.5, 32}), QColor(Qt::white).rgb());
        QCOMPARE(pixelAt(picture, {40, 32}), ink.rgb());
    }

    void isTransparentAsItsColor()
    {
        auto symbol = make(Symbol::Name::FolderFill);
        symbol->setColor(QColor(51, 102, 153, 102));
        QCOMPARE(qAlpha(pixelAt(drawn(*symbol, 1), {12, 16})), 102);
    }

    void drawsAnewOnlyOnAChange()
    {
        Stage stage;
        CountedSymbol symbol;
        stage.show(symbol);
        symbol.setName(Symbol::Name::FolderFill);
        symbol.setSide(24);
        symbol.setColor(ink);
        QCOMPARE(pixelAt(stage.picture(), {38, 36}), ink.rgb());
        const int before = symbol.count;
        symbol.setColor(ink);
        symbol.setName(Symbol::Name::FolderFill);
        symbol.setSide(24);
        symbol.setX(20);
        QCOMPARE(pixelAt(stage.picture(), {38, 36}), ink.rgb());
        QCOMPARE(symbol.count, before);

        symbol.setColor(Qt::red);
        QCOMPARE(pixelAt(stage.picture(), {38, 36}), QColor(Qt::red).rgb());
        symbol.setName(Symbol::Name::Checkmark);
        QCOMPARE(pixelAt(stage.picture(), {38, 36}), QColor(Qt::white).rgb());
        QCOMPARE(symbol.count, before + 2);
    }

    void fitsAnyShapeCentred()
    {
        auto symbol = make(Symbol::Name::HSquare);
        QCOMPARE(symbol->size(), QSizeF(24, 24));
        QSignalSpy changes(symbol.get(), &Symbol::sideChanged);
        symbol->setSide(16);
        QCOMPARE(changes.count(), 1);
        QCOMPARE(symbol->size(), QSizeF(16, 16));
        symbol->setSize({48, 24});
        QCOMPARE(symbol->drawnRect(), QRectF(12, 0, 24, 24));
        QCOMPARE(bounds(drawn(*symbol, 1)), QRectF(15, 3, 18, 18));
    }
};

QUORVALE_TEST(SymbolTest)
#include "symbol_test.moc"
