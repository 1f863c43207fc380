// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "sleeplock.h"

#include "applicationservice.h"
#include "silentbus.h"

#include <QCoreApplication>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusUnixFileDescriptor>
#include <QThreadPool>

#include <climits>
#include <utility>

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace quorvale {

namespace {

const auto reason = u"Converting videos"_s;

QDBusMessage makeRequest(const QString &service, const QString &path, const QString &interface,
                         const QVariantList &arguments)
{
    auto request = QDBusMessage::createMethodCall(service, path, interface, u"Inhibit"_s);
    request.setAutoStartService(false); // another desktop's would do nothing
    request.setArguments(arguments);
    return request;
}

} // namespace

void SleepLock::setHeld(bool isHeld)
{
    if (isHeld == (m_turn % 2 == 1))
        return;
    ++m_turn;
    if (isHeld)
        askSessionManager(m_turn);
    else if (const Release release = std::exchange(m_release, nullptr))
        release();
}

void SleepLock::askSessionManager(int turn)
{
    constexpr uint noWindow = 0;
    constexpr uint againstSleep = 4;
    const auto request = makeRequest(
        u"org.gnome.SessionManager"_s, u"/org/gnome/SessionManager"_s,
        u"org.gnome.SessionManager"_s,
        {QString::fromLatin1(ApplicationService::name), noWindow, reason, againstSleep});
    ask(m_sessionBus, request, turn, releaseBy(request, u"Uninhibit"_s),
        [this, turn] { askPowerManagement(turn); });
}

void SleepLock::askPowerManagement(int turn)
{
    const auto request = makeRequest(u"org.freedesktop.PowerManagement"_s,
                                     u"/org/freedesktop/PowerManagement/Inhibit"_s,
                                     u"org.freedesktop.PowerManagement.Inhibit"_s,
                                     {QCoreApplication::applicationName(), reason});
    ask(m_sessionBus, request, turn, releaseBy(request, u"UnInhibit"_s),
        [this, turn] { findLogin(turn); });
}

// To connect waits.
void SleepLock::findLogin(int turn)
{
    QThreadPool::globalInstance()->start([weak = std::weak_ptr(m_self), turn] {
        const QByteArray address = qgetenv("DBUS_SYSTEM_BUS_ADDRESS");
        if (isSilentBus(address.isEmpty() ? "unix:path=/run/dbus/system_bus_socket" : address, 1s))
            return;
        const auto bus = QDBusConnection::systemBus();
        const auto proceed = [weak, bus, turn] {
            if (const auto self = weak.lock())
                (*self)->askLogin(bus, turn);
        };
        QMetaObject::invokeMethod(qApp, proceed, Qt::QueuedConnection);
    });
}

void SleepLock::askLogin(const QDBusConnection &systemBus, int turn)
{
    const auto request =
        makeRequest(u"org.freedesktop.login1"_s, u"/org/freedesktop/login1"_s,
                    u"org.freedesktop.login1.Manager"_s,
                    {u"sleep"_s, QCoreApplication::applicationName(), reason, u"block"_s});
    const auto releaseOf = [](const QDBusPendingReply<QDBusUnixFileDescriptor> &reply) -> Release {
        // The lock is held until the descriptor is closed, with its last copy.
        auto lock = std::make_shared<QDBusUnixFileDescriptor>(reply.value());
        return [lock] {
            lock->setFileDescriptor(-1);
        };
    };
    ask(systemBus, request, turn, releaseOf, [] {});
}

void SleepLock::ask(const QDBusConnection &bus, const QDBusMessage &request, int turn,
                    const ReleaseOf &releaseOf, const std::function<void()> &askNext)
{
    if (turn != m_turn)
        return;
    if (!bus.isConnected()) // where Qt has no answer, not even an error
        return askNext();
    // Without a limit of time: what is granted to nobody could not be given back.
    const auto call = bus.asyncCall(request, INT_MAX);
    connect(new QDBusPendingCallWatcher(call, this), &QDBusPendingCallWatcher::finished, this,
            [this, turn, releaseOf, askNext](QDBusPendingCallWatcher *answer) {
                answer->deleteLater();
                if (answer->isError())
                    return askNext();
                const Release release = releaseOf(*answer);
                if (turn == m_turn)
                    m_release = release;
                else
                    release();
            });
}

SleepLock::ReleaseOf SleepLock::releaseBy(const QDBusMessage &request, const QString &method) const
{
    return [=, bus = m_sessionBus](const QDBusPendingReply<uint> &reply) -> Release {
        auto release = QDBusMessage::createMethodCall(request.service(), request.path(),
                                                      request.interface(), method);
        release << reply.value();
        return [bus, release] {
            bus.send(release);
        };
    };
}

} // namespace quorvale
