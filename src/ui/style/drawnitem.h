// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QQuickItem>

class QPainter;

namespace quorvale {

/// An item drawn with a painter into an image of the window's own pixels, so that it looks the same
/// with every graphics driver and with none. Unlike QQuickPaintedItem it may draw outside its
/// rectangle, and an item of a broken size is not stretched to a whole one. Derived from by its
/// full name, which is how QML's tools look it up.
class DrawnItem : public QQuickItem
{
    Q_OBJECT
    QML_ANONYMOUS

public:
    explicit DrawnItem(QQuickItem *parent = nullptr);

    /// Draws the item, in its own coordinates and logical pixels. `pixel` is the side of a device
    /// pixel in them. Called on the render thread while the main thread waits.
    virtual void draw(QPainter &painter, qreal pixel) const = 0;

    /// What `draw` covers at most; empty when it would draw nothing.
    virtual QRectF drawnRect() const;

protected:
    QSGNode *updatePaintNode(QSGNode *old, UpdatePaintNodeData *) override;
    void itemChange(ItemChange change, const ItemChangeData &value) override;
    void geometryChange(const QRectF &now, const QRectF &before) override;

    /// Gives `member` the value and draws anew; false when it has it already.
    template <typename T>
    bool change(T &member, const T &value)
    {
        if (member == value)
            return false;
        member = value;
        update();
        return true;
    }
};

} // namespace quorvale
