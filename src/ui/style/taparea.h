// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QBasicTimer>
#include <QQuickItem>

class QPointerEvent;

namespace quorvale {

/// Takes what a finger or a pen does to it, and leaves the mouse to what is below. What scrolls the
/// area can take either back, until it has been held. Main thread.
class TapArea : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT

public:
    explicit TapArea(QQuickItem *parent = nullptr);

    /// Nothing comes of the touch that there is. Of a pen's Qt does not say who else has taken it.
    Q_INVOKABLE void forget();

Q_SIGNALS:
    /// It was touched and left.
    void tapped();
    /// It is touched for as long as the platform's long press takes, at this place. Nothing else
    /// comes of this touch any more, nor of its end.
    void held(const QPointF &place);

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void mouseUngrabEvent() override;
    void touchUngrabEvent() override;
    void timerEvent(QTimerEvent *event) override;

private:
    QBasicTimer m_hold; // as long as it can become a tap or a long press
    QPointF m_place;
};

} // namespace quorvale
