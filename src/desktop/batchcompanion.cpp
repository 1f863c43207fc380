// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "batchcompanion.h"

#include "controller/converterviewmodel.h"

#include <QCoreApplication>

#include <chrono>

using namespace std::chrono_literals;

namespace quorvale {

BatchCompanion::BatchCompanion(const ConverterViewModel &model, const QDBusConnection &sessionBus)
    : m_model(model), m_sleepLock(sessionBus), m_dockProgress(sessionBus)
{
    // The jobs may change very often, and to work out how far a long queue is takes a while.
    m_soon.setInterval(100ms);
    m_soon.setSingleShot(true);
    connect(&m_soon, &QTimer::timeout, this, &BatchCompanion::follow);
    connect(&model, &ConverterViewModel::jobsChanged, this, [this] {
        if (m_model.isConverting() && !m_soon.isActive())
            m_soon.start();
    });
    connect(&model, &ConverterViewModel::isConvertingChanged, this, [this] {
        m_sleepLock.setHeld(m_model.isConverting());
        follow();
    });
    connect(QCoreApplication::instance(), &QCoreApplication::aboutToQuit, this,
            [this] { m_dockProgress.hideForGood(); });
}

void BatchCompanion::follow()
{
    if (m_model.isConverting())
        m_dockProgress.show(m_model.overallProgress());
    else
        m_dockProgress.hide();
}

} // namespace quorvale
