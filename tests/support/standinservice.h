// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "childofthetest.h"

#include <QDBusConnection>
#include <QHash>
#include <QList>
#include <QObject>
#include <QVariantList>

namespace quorvale::test {

class PrivateBus;

/// A service of the desktop, which a process of its own plays on the test's bus: it does what it is
/// told to do and remembers what it was asked; see tests/fakes/standinservice.cpp.
class StandInService : public QObject
{
    Q_OBJECT

public:
    using Step = QVariantList;
    using Script = QList<Step>;

    static Step reply(const QVariantList &values = {}) { return step(u"reply", values); }
    static Step refuse() { return step(u"refuse"); }
    static Step replyLock() { return step(u"reply-lock"); }
    static Step replyRequest() { return step(u"reply-request"); }
    static Step signal(const QString &path, const QString &interface, const QString &name,
                       const QVariantList &values)
    {
        return step(u"signal", QVariantList{path, interface, name} + values);
    }
    static Step endItself() { return step(u"end"); }

    /// Starts it, tells it what calls of its methods do, and waits until it has the name on the
    /// bus.
    StandInService(const PrivateBus &bus, const QString &name,
                   const QHash<QString, Script> &methods);

    /// What every call of the method does from now on; without a reply the caller gets no answer.
    void prepare(const QString &method, const Script &script) const;

    /// What it does now, once.
    void perform(const Script &script) const;

    /// Ends it, and waits until the bus knows.
    void end();

    bool isRunning() const { return m_process.state() == QProcess::Running; }

    /// The arguments of each call of the method that has done its script.
    QList<QVariantList> calls(const QString &method) const { return m_calls.value(method); }

Q_SIGNALS:
    /// A call of the method has done its script.
    void called(const QString &method);

private Q_SLOTS:
    void take(const QString &method, const QVariantList &values);

private:
    static Step step(QStringView name, const QVariantList &values = {})
    {
        return QVariantList{name.toString()} + values;
    }
    void steer(const QString &method, const QVariantList &values) const;

    QString m_name;
    QDBusConnection m_bus;
    ChildOfTheTest m_process;
    QString m_connection; // its name on the bus
    QHash<QString, QList<QVariantList>> m_calls;
};

} // namespace quorvale::test
