// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "pen.h"

#include <QPointingDevice>
#include <QQuickWindow>

#include <qpa/qwindowsysteminterface.h>
#include <qpa/qwindowsysteminterface_p.h>

using namespace Qt::StringLiterals;

namespace quorvale::test {

namespace {

void send(const QQuickItem &item, QPointF place, Qt::MouseButton button)
{
    // On X11 and Wayland Qt makes the mouse's of a pen's events that nobody takes.
    QWindowSystemInterfacePrivate::TabletEvent::setPlatformSynthesizesMouse(false);
    static const QPointingDevice pen(u"pen"_s, 1, QInputDevice::DeviceType::Stylus,
                                     QPointingDevice::PointerType::Pen,
                                     QInputDevice::Capability::Pressure, 1, 1);
    QQuickWindow *window = item.window();
    const QPointF inWindow = item.mapToScene(place);
    const double pressure = button == Qt::NoButton ? 0 : 0.5;
    QWindowSystemInterface::handleTabletEvent(window, &pen, inWindow, window->mapToGlobal(inWindow),
                                              button, pressure, 0, 0, 0, 0, 0);
    QWindowSystemInterface::flushWindowSystemEvents();
}

} // namespace

void Pen::press(QQuickItem *item, qreal x, qreal y, Qt::MouseButton button)
{
    send(*item, {x, y}, button);
}

void Pen::move(QQuickItem *item, qreal x, qreal y)
{
    send(*item, {x, y}, Qt::LeftButton);
}

void Pen::release(QQuickItem *item, qreal x, qreal y)
{
    send(*item, {x, y}, Qt::NoButton);
}

void Pen::tap(QQuickItem *item, qreal x, qreal y, Qt::MouseButton button)
{
    press(item, x, y, button);
    release(item, x, y);
}

} // namespace quorvale::test
