// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "portalrequest.h"

#include <QDBusMessage>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QDBusVariant>
#include <QUuid>

using namespace Qt::StringLiterals;

namespace quorvale {

namespace {

const auto service = u"org.freedesktop.portal.Desktop"_s;
const auto objectPath = u"/org/freedesktop/portal/desktop"_s;
const auto chooserInterface = u"org.freedesktop.portal.FileChooser"_s;
const auto requestInterface = u"org.freedesktop.portal.Request"_s;

// Long enough for a portal that is started first, short enough for a user who waits for a panel.
constexpr int patience = 5'000; // milliseconds

// What the portal's response says when the user has chosen.
constexpr uint success = 0;

} // namespace

PortalRequest::PortalRequest(const QDBusConnection &bus) : m_bus(bus) {}

uint PortalRequest::version() const
{
    auto question = QDBusMessage::createMethodCall(service, objectPath,
                                                   u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    question << chooserInterface << u"version"_s;
    QDBusPendingCallWatcher call(m_bus.asyncCall(question, patience));
    QEventLoop loop;
    connect(&call, &QDBusPendingCallWatcher::finished, &loop, &QEventLoop::quit);
    if (!call.isFinished())
        loop.exec();
    // The program may end before the answer.
    const QDBusPendingReply<QDBusVariant> reply = call;
    return call.isFinished() && reply.isValid() ? reply.value().variant().toUInt() : 0;
}

PortalRequest::Outcome PortalRequest::open(const QString &parentWindow, const QString &title,
                                           QVariantMap options)
{
    // The request's path follows from the token, so that no response comes too early to be heard.
    const QString token = u"quorvale"_s + QUuid::createUuid().toString(QUuid::Id128);
    options.insert(u"handle_token"_s, token);
    const QString sender = m_bus.baseService().mid(1).replace(u'.', u'_');
    listenAt(objectPath + u"/request/"_s + sender + u'/' + token);

    const QDBusServiceWatcher watcher(service, m_bus, QDBusServiceWatcher::WatchForOwnerChange);
    connect(&watcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString &, const QString &oldOwner) {
                if (!oldOwner.isEmpty()) // rather than a portal that has just been started
                    giveUp();
            });
    m_bus.connect(QString(), u"/org/freedesktop/DBus/Local"_s, u"org.freedesktop.DBus.Local"_s,
                  u"Disconnected"_s, this, SLOT(giveUp()));

    auto request =
        QDBusMessage::createMethodCall(service, objectPath, chooserInterface, u"OpenFile"_s);
    request << parentWindow << title << options;
    const QDBusPendingCallWatcher call(m_bus.asyncCall(request));
    connect(&call, &QDBusPendingCallWatcher::finished, this, &PortalRequest::takeHandle);
    m_loop.exec();

    if (!m_isOver) // the program ends
        m_bus.send(QDBusMessage::createMethodCall(service, m_handle, requestInterface, u"Close"_s));
    return m_outcome;
}

void PortalRequest::listenAt(const QString &handle)
{
    m_handle = handle;
    m_bus.connect(QString(), handle, requestInterface, u"Response"_s, this,
                  SLOT(takeResponse(uint, QVariantMap)));
}

void PortalRequest::takeHandle(QDBusPendingCallWatcher *call)
{
    const QDBusPendingReply<QDBusObjectPath> reply = *call;
    if (reply.isValid()) {
        // Portals from before the token choose a path of their own.
        if (reply.value().path() != m_handle)
            listenAt(reply.value().path());
        return;
    }
    switch (reply.error().type()) {
    case QDBusError::NoReply:
    case QDBusError::Disconnected:
    case QDBusError::TimedOut:
    case QDBusError::Timeout:
        return giveUp();
    default:
        return end(Outcome::unavailable);
    }
}

void PortalRequest::takeResponse(uint response, const QVariantMap &results)
{
    if (response != success)
        return end(Outcome::cancelled);
    m_urls.clear();
    for (const QString &uri : results.value(u"uris"_s).toStringList())
        m_urls << QUrl::fromEncoded(uri.toUtf8());
    end(Outcome::chosen);
}

void PortalRequest::giveUp()
{
    end(Outcome::cancelled);
}

// The first end counts.
void PortalRequest::end(Outcome outcome)
{
    if (m_isOver)
        return;
    m_isOver = true;
    m_outcome = outcome;
    m_loop.quit();
}

} // namespace quorvale
