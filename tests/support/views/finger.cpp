// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "finger.h"

#include <QPointingDevice>
#include <QQuickWindow>

#include <qpa/qwindowsysteminterface.h>

namespace quorvale::test {

void Finger::cancel(QQuickItem *item)
{
    const auto devices = QInputDevice::devices();
    for (const QInputDevice *device : devices) {
        if (device->type() == QInputDevice::DeviceType::TouchScreen) {
            QWindowSystemInterface::handleTouchCancelEvent(
                item->window(), static_cast<const QPointingDevice *>(device));
        }
    }
    QWindowSystemInterface::flushWindowSystemEvents();
}

} // namespace quorvale::test
