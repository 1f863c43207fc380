// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QTimer>

#include <chrono>
#include <functional>
#include <thread>

namespace quorvale {

/// Keeps the machine from going to sleep by itself, though not its screen. No service does that
/// everywhere, so the first of these is asked that grants it: org.gnome.SessionManager of GNOME and
/// its relatives, org.freedesktop.PowerManagement of KDE and Xfce, and logind on the system bus,
/// whose lock some desktops overrule. Where nobody does, nothing is said. A service that ends
/// forgets its locks, so when one of them comes or goes they are asked anew. (logind remembers.)
/// Main thread, which never waits.
class SleepLock : public QObject
{
    Q_OBJECT

public:
    /// A service that comes is asked after `delay`, because some take their name on the bus before
    /// they can be asked.
    explicit SleepLock(const QDBusConnection &sessionBus,
                       std::chrono::milliseconds delay = std::chrono::seconds(1));

    /// Takes the lock, or gives it back; also one that is granted only after that. The end of the
    /// program gives it back in any case.
    void setHeld(bool isHeld);

private:
    using Release = std::function<void()>;
    // What makes of a service's answer the way to give the lock back.
    using ReleaseOf = std::function<Release(const QDBusPendingCall &)>;

    bool isHeld() const { return m_turn % 2 == 1; }
    void askAnew();
    void askSessionManager(int turn);
    void askPowerManagement(int turn);
    void findLogin(int turn);
    void askLogin(const QDBusConnection &systemBus, int turn);
    void ask(const QDBusConnection &bus, const QDBusMessage &request, int turn,
             const ReleaseOf &releaseOf, const std::function<void()> &askNext);
    ReleaseOf releaseBy(const QDBusMessage &request, const QString &method) const;

    const QDBusConnection m_sessionBus;
    QDBusServiceWatcher m_sessionServices;
    QDBusServiceWatcher m_systemServices;
    QTimer m_delay; // since one of them came or went
    int m_turn = 0; // which is odd while the lock is to be held
    Release m_release;
    bool m_isFindingLogin = false;
    int m_turnOfLogin = 0;       // for which it is found
    std::jthread m_findingLogin; // the last, so that it has ended when the others go
};

} // namespace quorvale
