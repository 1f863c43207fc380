// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "standinservice.h"

#include "privatebus.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>

using namespace Qt::StringLiterals;

namespace quorvale::test {

namespace {

const auto steering = u"quorvale.test.StandIn"_s;

// D-Bus wants to know of a list in a list that it may hold anything.
QVariantList sent(const StandInService::Script &script)
{
    QVariantList steps;
    for (const StandInService::Step &step : script)
        steps << QVariant(step);
    return {QVariant(steps)};
}

} // namespace

StandInService::StandInService(const PrivateBus &bus, const QString &name,
                               const QHash<QString, Script> &methods)
    : m_name(name), m_bus(bus.connection(u"test"_s))
{
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, bus.address());
    m_process.setProcessEnvironment(environment);
    m_connection =
        QString::fromLatin1(m_process.startAndReadLine(QStringLiteral(STAND_IN_SERVICE), {}));
    if (!m_bus.connect(m_connection, u"/"_s, steering, u"Called"_s, this,
                       SLOT(take(QString, QVariantList))))
        qFatal("Cannot listen to the stand-in of %s.", qPrintable(name));
    for (auto method = methods.cbegin(); method != methods.cend(); ++method)
        prepare(method.key(), *method);
    perform({step(u"appear", {name})});
}

void StandInService::prepare(const QString &method, const Script &script) const
{
    steer(u"Prepare"_s, QVariantList{method} + sent(script));
}

void StandInService::perform(const Script &script) const
{
    steer(u"Perform"_s, sent(script));
}

void StandInService::steer(const QString &method, const QVariantList &values) const
{
    auto message = QDBusMessage::createMethodCall(m_connection, u"/"_s, steering, method);
    message.setArguments(values);
    const QDBusMessage reply = m_bus.call(message);
    if (reply.type() != QDBusMessage::ReplyMessage)
        qFatal("The stand-in of %s: %s", qPrintable(m_name), qPrintable(reply.errorMessage()));
}

void StandInService::end()
{
    m_process.kill();
    m_process.waitForFinished(-1);
    while (m_bus.interface()->isServiceRegistered(m_connection)) {
    }
}

void StandInService::take(const QString &method, const QVariantList &values)
{
    m_calls[method] << values;
    Q_EMIT called(method);
}

} // namespace quorvale::test
