// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "symbol.h"

#include <QMetaEnum>
#include <QPainter>
#include <QSvgRenderer>

#include <map>

namespace quorvale {

using namespace Qt::StringLiterals;

namespace {

/// The parsed drawing of the symbol. Parsed once for all items that show it; those of different
/// windows do not draw at the same time, because the main thread waits for each of them.
QSvgRenderer &drawingOf(Symbol::Name name)
{
    static std::map<Symbol::Name, QSvgRenderer> drawings;
    const auto [drawing, isNew] = drawings.try_emplace(name);
    if (isNew) {
        const auto names = QMetaEnum::fromType<Symbol::Name>();
        const QString file = QString::fromLatin1(names.valueToKey(int(name))).toLower();
        drawing->second.load(u":/qt/qml/Quorvale/Style/symbols/"_s + file + u".svg"_s);
    }
    return drawing->second;
}

} // namespace

Symbol::Symbol(QQuickItem *parent) : DrawnItem(parent)
{
    setImplicitSize(m_side, m_side);
}

void Symbol::setName(Name name)
{
    if (change(m_name, name))
        Q_EMIT nameChanged();
}

void Symbol::setColor(const QColor &color)
{
    if (change(m_color, color))
        Q_EMIT colorChanged();
}

void Symbol::setSide(qreal side)
{
    if (m_side == side)
        return;
    m_side = side;
    setImplicitSize(side, side);
    Q_EMIT sideChanged();
}

QRectF Symbol::drawnRect() const
{
    if (m_name == Name::None)
        return {};
    const qreal side = std::min(width(), height());
    return {(width() - side) / 2, (height() - side) / 2, side, side};
}

void Symbol::draw(QPainter &painter, qreal) const
{
    const QRectF rect = drawnRect();
    if (rect.isEmpty())
        return;
    drawingOf(m_name).render(&painter, rect);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(rect, m_color);
}

} // namespace quorvale
