// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "accessibleitem.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QList>
#include <QObject>
#include <QStringList>

namespace quorvale::test {

/// What programs say about their windows by themselves, as a screen reader hears it: as that does,
/// it asks whose event it is when it hears of it, and not earlier.
class AccessibleEvents : public QObject
{
    Q_OBJECT

public:
    /// Listens on the bus from now on, and says so there: who is not listened to sends nothing.
    explicit AccessibleEvents(const QDBusConnection &bus);
    ~AccessibleEvents() override;

    /// The names of the notifications that have been shown, one after the other.
    QStringList announcements() const;

    /// How many changes of this kind have come of items of this role.
    qsizetype count(const QString &change, AccessibleItem::Role role) const;

private Q_SLOTS:
    void take(const QDBusMessage &message);

private:
    void steer(const char *method) const;

    struct Event
    {
        QString change; // by the name that the AT-SPI protocol has for it
        AccessibleItem::Role role;
        QString name;
    };

    QDBusConnection m_bus;
    QList<Event> m_events;
};

} // namespace quorvale::test
