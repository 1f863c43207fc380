// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "businstance.h"

#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace quorvale {

namespace {

const auto busService = u"org.freedesktop.DBus"_s;

QDBusMessage busCall(const QString &method, const QVariantList &arguments)
{
    auto call =
        QDBusMessage::createMethodCall(busService, u"/org/freedesktop/DBus"_s, busService, method);
    call.setArguments(arguments);
    return call;
}

} // namespace

BusInstance::BusInstance(const QDBusConnection &bus, const QList<QUrl> &files,
                         const QVariantMap &platformData, std::chrono::milliseconds patience)
    : Instance(Place::undecided), m_bus(bus), m_files(files), m_platformData(platformData),
      m_patience(patience)
{
    connect(&m_service, &ApplicationService::called, this, &Instance::handedOver);
    if (m_bus.isConnected()) {
        m_service.offer(m_bus); // before the name by which others find it
        askForName();
    } else {
        decide(Place::own);
    }
}

void BusInstance::askForName()
{
    // The one who comes later is kept in mind, and has the name when the first has gone.
    constexpr uint noFlags = 0;
    constexpr uint inQueue = 2;
    ask(busCall(u"RequestName"_s, {QString::fromLatin1(ApplicationService::name), noFlags}),
        m_patience, [this](const QDBusPendingReply<uint> &reply) {
            if (!reply.isValid() || reply.value() != inQueue)
                return decide(Place::own);
            m_service.setRefusing(true);
            findOwner();
        });
}

void BusInstance::findOwner()
{
    // By its own name, as the other one may be ours at any time.
    ask(busCall(u"GetNameOwner"_s, {QString::fromLatin1(ApplicationService::name)}), m_patience,
        [this](const QDBusPendingReply<QString> &reply) {
            if (!reply.isValid() || reply.value() == m_bus.baseService())
                return decide(Place::own);
            handOverTo(reply.value());
        });
}

void BusInstance::handOverTo(const QString &owner)
{
    // What is done in time is also answered in time.
    ask(ApplicationService::makeCall(owner, m_files, m_platformData, m_patience), m_patience + 1s,
        [this](const QDBusPendingCall &answer) {
            decide(answer.isError() ? Place::own : Place::elsewhere);
        });
}

void BusInstance::ask(const QDBusMessage &question, std::chrono::milliseconds patience,
                      const std::function<void(const QDBusPendingCall &)> &take)
{
    const auto call = m_bus.asyncCall(question, static_cast<int>(patience.count()));
    connect(new QDBusPendingCallWatcher(call, this), &QDBusPendingCallWatcher::finished, this,
            [take](QDBusPendingCallWatcher *answer) {
                answer->deleteLater();
                take(*answer);
            });
}

void BusInstance::decide(Place place)
{
    m_service.setRefusing(place != Place::own);
    take(place);
}

} // namespace quorvale
