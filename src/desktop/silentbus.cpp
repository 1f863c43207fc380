// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "silentbus.h"

#include <QDeadlineTimer>

#include <dbus/dbus.h>
#include <future>
#include <thread>

namespace quorvale {

namespace {

constexpr auto addressVariable = "DBUS_SESSION_BUS_ADDRESS";

bool keepsSilent(const QByteArray &address, QDeadlineTimer deadline)
{
    DBusConnection *bus = dbus_connection_open_private(address.constData(), nullptr);
    if (!bus)
        return false;
    const auto waits = [bus] {
        return dbus_connection_get_is_connected(bus) && !dbus_connection_get_is_authenticated(bus);
    };
    while (waits() && !deadline.hasExpired())
        dbus_connection_read_write(bus, static_cast<int>(deadline.remainingTime()));
    const bool isSilent = waits();
    dbus_connection_close(bus);
    dbus_connection_unref(bus);
    return isSilent;
}

} // namespace

bool isSilentBus(const QByteArray &address, std::chrono::milliseconds patience)
{
    dbus_threads_init_default();
    // On a thread of its own: a bus that has hung for long takes no more connections, and to
    // connect waits without a limit then.
    std::packaged_task<bool()> task([=] { return keepsSilent(address, QDeadlineTimer(patience)); });
    std::future<bool> answer = task.get_future();
    std::thread(std::move(task)).detach();
    return answer.wait_for(patience + patience / 2) != std::future_status::ready || answer.get();
}

void leaveSilentSessionBus(std::chrono::milliseconds patience)
{
    QByteArray address = qgetenv(addressVariable);
    if (address.isEmpty() && qEnvironmentVariableIsSet("XDG_RUNTIME_DIR"))
        address = "unix:path=" + qgetenv("XDG_RUNTIME_DIR") + "/bus";
    if (!address.isEmpty() && isSilentBus(address, patience))
        qputenv(addressVariable, "disabled:"); // where libdbus finds nothing
}

} // namespace quorvale
