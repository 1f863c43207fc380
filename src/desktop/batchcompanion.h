// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "dockprogress.h"
#include "sleeplock.h"

#include <QObject>
#include <QTimer>

namespace quorvale {

class ConverterViewModel;

/// What the desktop does while a batch runs: the machine stays awake, and the dock shows how far
/// the queue is. Main thread.
class BatchCompanion : public QObject
{
    Q_OBJECT

public:
    /// For the batches of this controller, which has to outlive it.
    explicit BatchCompanion(const ConverterViewModel &model,
                            const QDBusConnection &sessionBus = QDBusConnection::sessionBus());

private:
    void follow();

    const ConverterViewModel &m_model;
    SleepLock m_sleepLock;
    DockProgress m_dockProgress;
    QTimer m_soon;
};

} // namespace quorvale
