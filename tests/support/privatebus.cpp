// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "privatebus.h"

#include <QFile>

#include <csignal>

using namespace Qt::StringLiterals;

namespace quorvale::test {

namespace {

// The bus of a session that can start the services of one folder.
QByteArray configuration(const QString &folder)
{
    return "<busconfig><type>session</type><listen>unix:dir=" + QFile::encodeName(folder)
           + "</listen><servicedir>" + QFile::encodeName(folder)
           + "</servicedir><policy context=\"default\"><allow send_destination=\"*\"/>"
             "<allow receive_sender=\"*\"/><allow own=\"*\"/></policy></busconfig>\n";
}

} // namespace

PrivateBus::PrivateBus(const QStringList &services)
{
    for (const QString &service : services) {
        const QString name = service + u".service"_s;
        if (!QFile::copy(u"/usr/share/dbus-1/services/"_s + name, m_folder.filePath(name)))
            qFatal("The service %s is not installed.", qPrintable(service));
    }
    QFile file(m_folder.filePath(u"session.conf"_s));
    if (!file.open(QIODevice::WriteOnly) || file.write(configuration(m_folder.path())) < 0)
        qFatal("Cannot write %s", qPrintable(file.fileName()));
    file.close();
    // What it starts gets its environment.
    m_daemon.setProcessEnvironment(environmentWithoutDesktop(m_folder.path()));
    m_address = QString::fromUtf8(m_daemon.startAndReadLine(
        u"dbus-daemon"_s, {u"--config-file="_s + file.fileName(), u"--nofork"_s, u"--nopidfile"_s,
                           u"--print-address"_s}));
}

PrivateBus::~PrivateBus()
{
    for (const QString &name : std::as_const(m_names))
        QDBusConnection::disconnectFromBus(m_address + name);
}

QDBusConnection PrivateBus::connection(const QString &name) const
{
    if (m_names.contains(name))
        return QDBusConnection(m_address + name);
    m_names << name;
    auto connection = QDBusConnection::connectToBus(m_address, m_address + name);
    if (!connection.isConnected())
        qFatal("Cannot connect to %s", qPrintable(m_address));
    return connection;
}

void PrivateBus::hang() const
{
    if (::kill(static_cast<pid_t>(m_daemon.processId()), SIGSTOP) != 0)
        qFatal("The bus cannot be stopped.");
}

void PrivateBus::end()
{
    m_daemon.kill();
    m_daemon.waitForFinished(-1);
}

} // namespace quorvale::test
