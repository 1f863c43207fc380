// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "pen.h"

#include <QPointingDevice>
#include <QQuickWindow>

#include <qpa/qwindowsysteminterface.h>
#include <qpa/qwindowsysteminterface_p.h>

using namespace Qt::StringLiterals;

namespace quorvale::test {

void Pen::tap(QQuickItem *item, qreal x, qreal y)
{
    // On X11 and Wayland Qt makes the mouse's of a pen's events that nobody takes.
    QWindowSystemInterfacePrivate::TabletEvent::setPlatformSynthesizesMouse(false);
    static const QPointingDevice pen(u"pen"_s, 1, QInputDevice::DeviceType::Stylus,
                                     QPointingDevice::PointerType::Pen,
                                     QInputDevice::Capability::Pressure, 1, 1);
    QQuickWindow *window = item->window();
    const QPointF place = item->mapToScene({x, y});
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::NoButton}) {
        const double pressure = button == Qt::LeftButton ? 0.5 : 0;
        QWindowSystemInterface::handleTabletEvent(window, &pen, place, window->mapToGlobal(place),
                                                  button, pressure, 0, 0, 0, 0, 0);
    }
    QWindowSystemInterface::flushWindowSystemEvents();
}

} // namespace quorvale::test
