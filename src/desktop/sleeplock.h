// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QObject>

#include <functional>
#include <memory>

namespace quorvale {

/// Keeps the machine from going to sleep by itself, though not its screen. No service does that
/// everywhere, so the first of these is asked that grants it: org.gnome.SessionManager of GNOME and
/// its relatives, org.freedesktop.PowerManagement of KDE and Xfce, and logind on the system bus,
/// whose lock some desktops overrule. Where nobody does, nothing is said. Main thread, which never
/// waits.
class SleepLock : public QObject
{
    Q_OBJECT

public:
    explicit SleepLock(const QDBusConnection &sessionBus) : m_sessionBus(sessionBus) {}

    /// Takes the lock, or gives it back; also one that is granted only after that. The end of the
    /// program gives it back in any case.
    void setHeld(bool isHeld);

private:
    using Release = std::function<void()>;
    // What makes of a service's answer the way to give the lock back.
    using ReleaseOf = std::function<Release(const QDBusPendingCall &)>;

    void askSessionManager(int turn);
    void askPowerManagement(int turn);
    void findLogin(int turn);
    void askLogin(const QDBusConnection &systemBus, int turn);
    void ask(const QDBusConnection &bus, const QDBusMessage &request, int turn,
             const ReleaseOf &releaseOf, const std::function<void()> &askNext);
    ReleaseOf releaseBy(const QDBusMessage &request, const QString &method) const;

    const QDBusConnection m_sessionBus;
    int m_turn = 0; // which is odd while the lock is to be held
    Release m_release;
    // For what comes back from another thread, possibly when this has gone.
    const std::shared_ptr<SleepLock *> m_self = std::make_shared<SleepLock *>(this);
};

} // namespace quorvale
