// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "dockprogress.h"

#include "applicationservice.h"

#include <QDBusMessage>

using namespace Qt::StringLiterals;

namespace quorvale {

void DockProgress::show(double fraction)
{
    // What is no number is nothing done.
    const int percent = fraction > 0 ? static_cast<int>(qMin(fraction, 1.0) * 100) : 0;
    if (percent == m_percent)
        return;
    m_percent = percent;
    send(true, percent);
}

void DockProgress::hide()
{
    if (!m_percent)
        return;
    m_percent.reset();
    send(false, 0);
}

void DockProgress::hideForGood()
{
    if (!m_percent)
        return;
    hide();
    // A signal is only handed to the thread that sends; what is answered has been sent after it.
    const auto question =
        QDBusMessage::createMethodCall(u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s,
                                       u"org.freedesktop.DBus"_s, u"GetId"_s);
    m_bus.call(question, QDBus::Block, 500);
}

void DockProgress::send(bool isVisible, int percent)
{
    auto update = QDBusMessage::createSignal(QLatin1StringView(ApplicationService::path),
                                             u"com.canonical.Unity.LauncherEntry"_s, u"Update"_s);
    update << u"application://%1.desktop"_s.arg(QLatin1StringView(ApplicationService::name))
           << QVariantMap{{u"progress"_s, percent / 100.0}, {u"progress-visible"_s, isVisible}};
    m_bus.send(update);
}

} // namespace quorvale
