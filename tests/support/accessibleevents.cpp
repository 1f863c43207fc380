// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "accessibleevents.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quorvale::test {

AccessibleEvents::AccessibleEvents(const QDBusConnection &bus) : m_bus(bus)
{
    if (!m_bus.connect({}, {}, u"org.a11y.atspi.Event.Object"_s, {}, this,
                       SLOT(take(QDBusMessage))))
        qFatal("Cannot listen to the accessibility bus.");
    steer("RegisterEvent");
}

AccessibleEvents::~AccessibleEvents()
{
    steer("DeregisterEvent");
}

void AccessibleEvents::steer(const char *method) const
{
    auto message =
        QDBusMessage::createMethodCall(u"org.a11y.atspi.Registry"_s, u"/org/a11y/atspi/registry"_s,
                                       u"org.a11y.atspi.Registry"_s, QString::fromLatin1(method));
    message.setArguments({u"object:"_s});
    const QDBusMessage reply = m_bus.call(message);
    if (reply.type() != QDBusMessage::ReplyMessage)
        qWarning("%s: %s", method, qPrintable(reply.errorMessage()));
}

QStringList AccessibleEvents::announcements() const
{
    QStringList names;
    for (const Event &event : m_events) {
        if (event.change == u"showing 1" && event.role == AccessibleItem::Role::notification)
            names << event.name;
    }
    return names;
}

qsizetype AccessibleEvents::count(const QString &change, AccessibleItem::Role role) const
{
    return std::ranges::count_if(
        m_events, [&](const Event &event) { return event.change == change && event.role == role; });
}

void AccessibleEvents::take(const QDBusMessage &message)
{
    const QVariantList arguments = message.arguments();
    const AccessibleItem item(m_bus, message.service(), message.path());
    m_events << Event{u"%1 %2"_s.arg(arguments.value(0).toString()).arg(arguments.value(1).toInt()),
                      item.role(), item.name()};
}

} // namespace quorvale::test
