// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "drawnitem.h"

#include <QColor>

namespace quorvale {

/// One of the program's pictograms in one colour. Its implicit size is a square of `size`; in an
/// item of another shape it is drawn as large as fits, centred. Never mirrored.
class Symbol : public quorvale::DrawnItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(Name name READ name WRITE setName NOTIFY nameChanged)
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged)
    Q_PROPERTY(qreal size READ side WRITE setSide NOTIFY sideChanged)

public:
    enum class Name {
        /// Draws nothing.
        None,
        /// A circular arrow cut out of a filled circle.
        ArrowClockwiseCircleFill,
        /// A document with a downward arrow cut out.
        ArrowDownDocFill,
        ArrowRightCircle,
        BoltFill,
        Checkmark,
        CheckmarkCircleFill,
        ChevronDown,
        ChevronUp,
        /// Both chevrons, for a list that drops down.
        ChevronUpDown,
        Cpu,
        /// A strip of film.
        Film,
        FilmStack,
        FolderBadgePlus,
        FolderFill,
        /// The letter H in a square.
        HSquare,
        /// Three horizontal lines, the handle of something to drag.
        Lines,
        PlayRectangle,
        Plus,
        /// A television set with sparkles.
        SparklesTv,
        /// An x cut out of a filled circle.
        XmarkCircleFill,
    };
    Q_ENUM(Name)

    explicit Symbol(QQuickItem *parent = nullptr);

    /// None at first.
    Name name() const { return m_name; }
    void setName(Name name);

    /// Black at first; its alpha is the symbol's opacity.
    QColor color() const { return m_color; }
    void setColor(const QColor &color);

    /// In logical pixels, 16 at first.
    qreal side() const { return m_side; }
    void setSide(qreal side);

    void draw(QPainter &painter, qreal pixel) const override;
    QRectF drawnRect() const override;

Q_SIGNALS:
    void nameChanged();
    void colorChanged();
    void sideChanged();

private:
    Name m_name = Name::None;
    QColor m_color = Qt::black;
    qreal m_side = 16;
};

} // namespace quorvale
