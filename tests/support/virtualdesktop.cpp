// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "virtualdesktop.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>

using namespace Qt::StringLiterals;

namespace quorvale::test {

VirtualDesktop::VirtualDesktop()
{
    const auto question = QDBusMessage::createMethodCall(u"org.a11y.Bus"_s, u"/org/a11y/bus"_s,
                                                         u"org.a11y.Bus"_s, u"GetAddress"_s);
    const QDBusMessage reply = m_session.connection(u"screen reader"_s).call(question);
    m_accessibility = reply.arguments().value(0).toString();
    if (!QDBusConnection::connectToBus(m_accessibility, m_accessibility).isConnected())
        qFatal("There is no accessibility bus: %s", qPrintable(reply.errorMessage()));
}

VirtualDesktop::~VirtualDesktop()
{
    QDBusConnection::disconnectFromBus(m_accessibility);
}

std::optional<AccessibleItem> VirtualDesktop::application(pid_t process) const
{
    const QDBusConnection bus = accessibility();
    const AccessibleItem registry(bus, u"org.a11y.atspi.Registry"_s,
                                  u"/org/a11y/atspi/accessible/root"_s);
    for (const AccessibleItem &application : registry.children()) {
        const auto id = bus.interface()->servicePid(application.service());
        if (id.isValid() && id.value() == static_cast<uint>(process))
            return application;
    }
    return std::nullopt;
}

} // namespace quorvale::test
