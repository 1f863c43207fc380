// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "taparea.h"

#include <QGuiApplication>
#include <QMetaMethod>
#include <QPointingDevice>
#include <QStyleHints>

namespace quorvale {

// Qt Quick makes the mouse's events of those of fingers and pens that nobody else takes.
TapArea::TapArea(QQuickItem *parent) : QQuickItem(parent)
{
    setAcceptedMouseButtons(Qt::LeftButton);
}

void TapArea::forget()
{
    m_hold.stop();
    setKeepMouseGrab(false);
    setKeepTouchGrab(false);
}

void TapArea::mousePressEvent(QMouseEvent *event)
{
    using enum QInputDevice::DeviceType;
    const auto type = event->deviceType();
    if (type != TouchScreen && type != Stylus) {
        event->ignore();
        return;
    }
    m_place = event->position();
    m_hold.start(QGuiApplication::styleHints()->mousePressAndHoldInterval(), this);
}

void TapArea::mouseMoveEvent(QMouseEvent *event)
{
    const qreal way = (event->position() - m_place).manhattanLength();
    if (way >= QGuiApplication::styleHints()->startDragDistance())
        m_hold.stop();
}

void TapArea::mouseReleaseEvent(QMouseEvent *)
{
    const bool isTap = m_hold.isActive();
    forget();
    if (isTap)
        Q_EMIT tapped();
}

// Comes after the press, and would be ignored.
void TapArea::mouseDoubleClickEvent(QMouseEvent *event)
{
    event->setAccepted(m_hold.isActive());
}

void TapArea::mouseUngrabEvent()
{
    forget();
}

void TapArea::touchUngrabEvent()
{
    forget();
}

void TapArea::timerEvent(QTimerEvent *)
{
    m_hold.stop();
    if (!isSignalConnected(QMetaMethod::fromSignal(&TapArea::held)))
        return;
    setKeepMouseGrab(true);
    setKeepTouchGrab(true);
    Q_EMIT held(m_place);
}

} // namespace quorvale
