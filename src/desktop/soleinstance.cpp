// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "soleinstance.h"

#include <QCoreApplication>
#include <QFileOpenEvent>

namespace quorvale {

SoleInstance::SoleInstance()
{
    QCoreApplication::instance()->installEventFilter(this);
}

bool SoleInstance::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::FileOpen)
        return Instance::eventFilter(watched, event);
    Q_EMIT handedOver({static_cast<QFileOpenEvent *>(event)->url()}, {});
    return true;
}

} // namespace quorvale
