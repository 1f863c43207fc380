// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusMessage>
#include <QList>
#include <QObject>
#include <QUrl>
#include <QVariantMap>

#include <chrono>

namespace quorvale {

/// The program as others on the session bus use it: the interface org.freedesktop.Application of
/// the Desktop Entry Specification, "D-Bus Activation". Main thread.
class ApplicationService : public QObject, protected QDBusContext
{
    Q_OBJECT

public:
    static constexpr auto name = "org.quorvale.Quorvale";
    static constexpr auto path = "/org/quorvale/Quorvale";

    /// What the starter of this process gave to it to have its window come to the front, from the
    /// environment: the platform data of the interface. To be called once, before there is an
    /// application, as they are taken away.
    static QVariantMap platformDataOfStart();

    /// A call of Open or, for no files, Activate that has to be done within `patience`, or not at
    /// all: the one who sends it waits no longer.
    static QDBusMessage makeCall(const QString &service, const QList<QUrl> &files,
                                 QVariantMap platformData, std::chrono::milliseconds patience);

    /// Offers nothing yet.
    using QObject::QObject;

    /// Offers it on the bus, to whoever finds it there.
    void offer(QDBusConnection bus);

    /// Answers every call by an error, or not any more.
    void setRefusing(bool isRefusing) { m_isRefusing = isRefusing; }

public Q_SLOTS:
    // As they are called on the bus.
    Q_SCRIPTABLE void Activate(const QVariantMap &platformData);
    Q_SCRIPTABLE void Open(const QStringList &uris, const QVariantMap &platformData);
    Q_SCRIPTABLE void ActivateAction(const QString &action, const QVariantList &parameter,
                                     const QVariantMap &platformData);

Q_SIGNALS:
    /// The window is to come to the front, with these files in the queue.
    void called(const QList<QUrl> &files, const QVariantMap &platformData);

private:
    void take(const QList<QUrl> &files, const QVariantMap &platformData);

    bool m_isRefusing = false;
};

} // namespace quorvale
