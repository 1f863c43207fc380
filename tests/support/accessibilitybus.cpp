// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "accessibilitybus.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>

using namespace Qt::StringLiterals;

namespace quorvale::test {

AccessibilityBus::~AccessibilityBus()
{
    if (!m_address.isEmpty())
        QDBusConnection::disconnectFromBus(m_address);
}

bool AccessibilityBus::start()
{
    const auto question = QDBusMessage::createMethodCall(u"org.a11y.Bus"_s, u"/org/a11y/bus"_s,
                                                         u"org.a11y.Bus"_s, u"GetAddress"_s);
    const QDBusMessage reply = m_session.connection(u"screen reader"_s).call(question);
    const QString address = reply.arguments().value(0).toString();
    if (reply.type() != QDBusMessage::ReplyMessage || address.isEmpty()) {
        qWarning("There is no accessibility bus: %s", qPrintable(reply.errorMessage()));
        return false;
    }
    const auto bus = QDBusConnection::connectToBus(address, address);
    if (!bus.isConnected()) {
        qWarning("%s: %s", qPrintable(address), qPrintable(bus.lastError().message()));
        return false;
    }
    m_address = address;
    return true;
}

std::optional<AccessibleItem> AccessibilityBus::application(pid_t process) const
{
    const QDBusConnection bus = connection();
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
