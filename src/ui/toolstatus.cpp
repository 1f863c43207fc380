// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "toolstatus.h"

#include "service/ffmpegservice.h"

#include <chrono>

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace quorvale {

ToolStatus::ToolStatus(QObject *parent) : QObject(parent)
{
    m_timer.setInterval(900ms);
    connect(&m_timer, &QTimer::timeout, this, &ToolStatus::look);
    look();
}

void ToolStatus::setActive(bool isActive)
{
    if (isActive == m_timer.isActive())
        return;
    if (isActive) {
        look();
        m_timer.start();
    } else {
        m_timer.stop();
    }
    Q_EMIT isActiveChanged();
}

void ToolStatus::look()
{
    const bool isFound = FFmpegService::locateBinary(u"ffmpeg"_s).has_value();
    if (isFound == m_isFound)
        return;
    m_isFound = isFound;
    Q_EMIT isFoundChanged();
}

} // namespace quorvale
