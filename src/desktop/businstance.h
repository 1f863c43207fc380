// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "applicationservice.h"
#include "instance.h"

#include <QDBusConnection>
#include <QDBusPendingCall>
#include <QList>
#include <QUrl>
#include <QVariantMap>

#include <chrono>
#include <functional>

namespace quorvale {

/// The instance in a session that has a bus: the first has the name org.quorvale.Quorvale there,
/// and an ApplicationService. One that hangs, or is about to end, is handed nothing.
class BusInstance : public Instance
{
    Q_OBJECT

public:
    /// Begins to look for the first process on the bus, to hand it these files with the platform
    /// data of this start. One that does not answer in `patience` hangs.
    BusInstance(const QDBusConnection &bus, const QList<QUrl> &files,
                const QVariantMap &platformData,
                std::chrono::milliseconds patience = std::chrono::seconds(4));

    void leave() override { m_service.setRefusing(true); }

private:
    void ask(const QDBusMessage &question, std::chrono::milliseconds patience,
             const std::function<void(const QDBusPendingCall &)> &take);
    void askForName();
    void findOwner();
    void handOverTo(const QString &owner);
    void decide(Place place);

    QDBusConnection m_bus;
    const QList<QUrl> m_files;
    const QVariantMap m_platformData;
    const std::chrono::milliseconds m_patience;
    ApplicationService m_service;
};

} // namespace quorvale
