// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "silentbus.h"

#include <QByteArrayView>
#include <QDeadlineTimer>
#include <QList>
#include <QScopeGuard>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <thread>

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

using namespace std::chrono_literals;

namespace quorvale {

namespace {

constexpr auto addressVariable = "DBUS_SESSION_BUS_ADDRESS";

// The name of a socket of this machine, from one address of D-Bus; empty where it is of another
// kind.
QByteArray socketName(const QByteArray &address)
{
    constexpr QByteArrayView local = "unix:";
    if (!address.startsWith(local))
        return {};
    for (const QByteArray &value : address.mid(local.size()).split(',')) {
        QByteArray text = QByteArray::fromPercentEncoding(value.mid(value.indexOf('=') + 1));
        if (value.startsWith("path="))
            return text;
        if (value.startsWith("abstract="))
            return '\0' + text;
    }
    return {};
}

bool keepsSilent(const QByteArray &name, QDeadlineTimer deadline)
{
    sockaddr_un place{.sun_family = AF_UNIX, .sun_path = {}};
    if (name.isEmpty() || static_cast<std::size_t>(name.size()) >= sizeof place.sun_path)
        return false;
    std::ranges::copy(name, place.sun_path);
    const auto length = offsetof(sockaddr_un, sun_path) + static_cast<std::size_t>(name.size());

    const int bus = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    const auto close = qScopeGuard([bus] { ::close(bus); });
    while (
        ::connect(bus, reinterpret_cast<const sockaddr *>(&place), static_cast<socklen_t>(length))
        != 0) {
        if (errno != EAGAIN) // which says that too many wait already
            return false;
        if (deadline.hasExpired())
            return true;
        std::this_thread::sleep_for(5ms);
    }
    // Asks which ways there are to be let in, as a client may begin.
    constexpr QByteArrayView question("\0AUTH\r\n", 7);
    if (::send(bus, question.data(), static_cast<std::size_t>(question.size()), MSG_NOSIGNAL) < 0)
        return false;
    pollfd answer{.fd = bus, .events = POLLIN, .revents = 0};
    int count = 0;
    do
        count = ::poll(&answer, 1, static_cast<int>(deadline.remainingTime()));
    while (count < 0 && errno == EINTR);
    return count == 0;
}

} // namespace

bool isSilentBus(const QByteArray &address, std::chrono::milliseconds patience)
{
    const QList<QByteArray> addresses = address.split(';');
    return std::ranges::any_of(addresses,
                               [&, deadline = QDeadlineTimer(patience)](const auto &each) {
                                   return keepsSilent(socketName(each), deadline);
                               });
}

void leaveSilentSessionBus(std::chrono::milliseconds patience)
{
    QByteArray address = qgetenv(addressVariable);
    if (address.isEmpty() && qEnvironmentVariableIsSet("XDG_RUNTIME_DIR"))
        address = "unix:path=" + qgetenv("XDG_RUNTIME_DIR") + "/bus";
    if (!address.isEmpty() && isSilentBus(address, patience))
        qputenv(addressVariable, "disabled:"); // where there is nothing
}

} // namespace quorvale
