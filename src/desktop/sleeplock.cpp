// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "sleeplock.h"

#include "applicationservice.h"
#include "silentbus.h"

#include <QCoreApplication>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusUnixFileDescriptor>

#include <climits>
#include <memory>
#include <optional>
#include <system_error>
#include <utility>

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace quorvale {

namespace {

const auto sessionManager = u"org.gnome.SessionManager"_s;
const auto powerManagement = u"org.freedesktop.PowerManagement"_s;
const auto login = u"org.freedesktop.login1"_s;

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

SleepLock::SleepLock(const QDBusConnection &sessionBus, std::chrono::milliseconds delay)
    : m_sessionBus(sessionBus)
{
    m_sessionServices.setConnection(m_sessionBus);
    for (QDBusServiceWatcher *services : {&m_sessionServices, &m_systemServices}) {
        connect(services, &QDBusServiceWatcher::serviceOwnerChanged, &m_delay,
                qOverload<>(&QTimer::start));
    }
    m_delay.setSingleShot(true);
    m_delay.setInterval(delay);
    connect(&m_delay, &QTimer::timeout, this, &SleepLock::askAnew);
}

void SleepLock::setHeld(bool isHeld)
{
    if (isHeld == this->isHeld())
        return;
    ++m_turn;
    if (isHeld) {
        m_sessionServices.setWatchedServices({sessionManager, powerManagement});
        return askSessionManager(m_turn);
    }
    m_sessionServices.setWatchedServices({});
    m_systemServices.setWatchedServices({});
    if (const Release release = std::exchange(m_release, nullptr))
        release();
}

void SleepLock::askAnew()
{
    if (!isHeld())
        return;
    m_turn += 2;
    askSessionManager(m_turn);
}

void SleepLock::askSessionManager(int turn)
{
    constexpr uint noWindow = 0;
    constexpr uint againstSleep = 4;
    const auto request = makeRequest(
        sessionManager, u"/org/gnome/SessionManager"_s, u"org.gnome.SessionManager"_s,
        {QString::fromLatin1(ApplicationService::name), noWindow, reason, againstSleep});
    ask(m_sessionBus, request, turn, releaseBy(request, u"Uninhibit"_s),
        [this, turn] { askPowerManagement(turn); });
}

void SleepLock::askPowerManagement(int turn)
{
    const auto request = makeRequest(powerManagement, u"/org/freedesktop/PowerManagement/Inhibit"_s,
                                     u"org.freedesktop.PowerManagement.Inhibit"_s,
                                     {QCoreApplication::applicationName(), reason});
    ask(m_sessionBus, request, turn, releaseBy(request, u"UnInhibit"_s),
        [this, turn] { findLogin(turn); });
}

// To connect waits.
void SleepLock::findLogin(int turn)
{
    m_turnOfLogin = turn;
    if (std::exchange(m_isFindingLogin, true))
        return;
    const auto find = [this] {
        const QByteArray address = qgetenv("DBUS_SYSTEM_BUS_ADDRESS");
        std::optional<QDBusConnection> bus;
        if (!isSilentBus(address.isEmpty() ? "unix:path=/run/dbus/system_bus_socket" : address, 1s))
            bus = QDBusConnection::systemBus();
        const auto proceed = [this, bus] {
            m_isFindingLogin = false;
            if (bus)
                askLogin(*bus, m_turnOfLogin);
        };
        QMetaObject::invokeMethod(this, proceed, Qt::QueuedConnection);
    };
    try {
        m_findingLogin = std::jthread(find);
    } catch (const std::system_error &) { // there is no thread to be had
        m_isFindingLogin = false;
        m_delay.start(); // and then anew
    }
}

void SleepLock::askLogin(const QDBusConnection &systemBus, int turn)
{
    if (turn != m_turn)
        return;
    m_systemServices.setConnection(systemBus);
    m_systemServices.setWatchedServices({login});
    const auto request =
        makeRequest(login, u"/org/freedesktop/login1"_s, u"org.freedesktop.login1.Manager"_s,
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
                Release release = releaseOf(*answer);
                if (turn == m_turn)
                    m_release.swap(release); // for an older one, if there is any
                if (release)
                    release();
            });
}

SleepLock::ReleaseOf SleepLock::releaseBy(const QDBusMessage &request, const QString &method) const
{
    return [=, bus = m_sessionBus](const QDBusPendingReply<uint> &reply) -> Release {
        // By its own name: to another one that has come in its place the number says nothing.
        auto release = QDBusMessage::createMethodCall(reply.reply().service(), request.path(),
                                                      request.interface(), method);
        release << reply.value();
        return [bus, release] {
            bus.send(release);
        };
    };
}

} // namespace quorvale
