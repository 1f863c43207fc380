// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "portalrequest.h"

#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QDBusVariant>
#include <QGuiApplication>
#include <QTimer>
#include <QUuid>

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace quorvale {

namespace {

const auto service = u"org.freedesktop.portal.Desktop"_s;
const auto objectPath = u"/org/freedesktop/portal/desktop"_s;
const auto chooserInterface = u"org.freedesktop.portal.FileChooser"_s;
const auto requestInterface = u"org.freedesktop.portal.Request"_s;

// Long enough for a portal that is started first, short enough for a user who waits for a panel.
constexpr auto patience = 5s;

// In which an answer comes that was on its way when the user gave up.
constexpr auto grace = 250ms;

// How often one presses on a window that does not answer until one means it.
constexpr int insistence = 3;

// What the portal's response says; anything else is that the chooser ended in some other way.
constexpr uint success = 0;
constexpr uint cancelledByUser = 1;

} // namespace

PortalRequest::PortalRequest(const QDBusConnection &bus) : m_bus(bus) {}

PortalRequest::Outcome PortalRequest::open(uint leastVersion, QFuture<QString> parentWindow,
                                           const QString &title, QVariantMap options)
{
    m_age.start();
    const QDBusServiceWatcher watcher(service, m_bus, QDBusServiceWatcher::WatchForOwnerChange);
    connect(&watcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString &, const QString &oldOwner) {
                if (!oldOwner.isEmpty()) // rather than a portal that has just been started
                    giveUp();
            });
    // The request's path follows from the token, so that no response comes too early to be heard.
    const QString token = u"quorvale"_s + QUuid::createUuid().toString(QUuid::Id128);
    options.insert(u"handle_token"_s, token);
    const QString sender = m_bus.baseService().mid(1).replace(u'.', u'_');
    if (!listenAt(objectPath + u"/request/"_s + sender + u'/' + token)
        || !m_bus.connect(QString(), u"/org/freedesktop/DBus/Local"_s,
                          u"org.freedesktop.DBus.Local"_s, u"Disconnected"_s, this, SLOT(giveUp())))
        return Outcome::failed;

    auto getVersion = QDBusMessage::createMethodCall(
        service, objectPath, u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    getVersion << chooserInterface << u"version"_s;
    const auto openFile = [this, title, options](const QString &parent) {
        if (m_isOver)
            return;
        auto call =
            QDBusMessage::createMethodCall(service, objectPath, chooserInterface, u"OpenFile"_s);
        call << parent << title << options;
        m_mayBeOpen = true;
        m_isKeptAbove = !parent.isEmpty();
        ask(call, 25s, [this](const QDBusPendingCall &answer) { takeHandle(answer); });
    };
    ask(getVersion, patience, [=, this](const QDBusPendingReply<QDBusVariant> &reply) mutable {
        if (!reply.isValid() || reply.value().variant().toUInt() < leastVersion)
            return giveUp();
        parentWindow.then(this, openFile);
    });
    connect(qGuiApp, &QGuiApplication::applicationStateChanged, this,
            [this](Qt::ApplicationState state) {
                m_wasLeft = m_wasLeft || state != Qt::ApplicationActive;
            });
    m_loop.exec(); // which the end of the program ends, too
    m_isOver = true;

    if (m_mayBeOpen) {
        auto close =
            QDBusMessage::createMethodCall(service, m_handle, requestInterface, u"Close"_s);
        close.setAutoStartService(false);
        m_bus.send(close);
    }
    return m_outcome;
}

void PortalRequest::takePress()
{
    // Not yet when the user presses twice for a chooser that is about to come.
    if ((m_wasLeft || m_age.hasExpired(patience / 1ms))
        && (++m_presses == insistence || !m_isKeptAbove))
        abandon();
}

void PortalRequest::abandon()
{
    QTimer::singleShot(grace, this, [this] { end(Outcome::cancelled); });
}

void PortalRequest::ask(const QDBusMessage &question, std::chrono::milliseconds patience,
                        const std::function<void(const QDBusPendingCall &)> &take)
{
    const auto call = m_bus.asyncCall(question, static_cast<int>(patience.count()));
    connect(new QDBusPendingCallWatcher(call, this), &QDBusPendingCallWatcher::finished, this,
            [this, take](QDBusPendingCallWatcher *answer) {
                if (!m_isOver)
                    take(*answer);
            });
}

bool PortalRequest::listenAt(const QString &handle)
{
    m_handle = handle;
    return m_bus.connect(QString(), handle, requestInterface, u"Response"_s, this,
                         SLOT(takeResponse(uint, QVariantMap)));
}

void PortalRequest::takeHandle(const QDBusPendingCall &answer)
{
    const QDBusPendingReply<QDBusObjectPath> reply = answer;
    // Portals from before the token choose a path of their own.
    if (!reply.isValid() || (reply.value().path() != m_handle && !listenAt(reply.value().path())))
        giveUp();
}

void PortalRequest::takeResponse(uint response, const QVariantMap &results)
{
    m_mayBeOpen = false;
    // GTK's portal says 1 for its button only, and "in some other way" for Escape and for a chooser
    // whose window is closed. But then that window was there, and had the focus.
    if (response != success)
        return end(response == cancelledByUser || m_wasLeft ? Outcome::cancelled : Outcome::failed);
    m_urls.clear();
    for (const QString &uri : results.value(u"uris"_s).toStringList())
        m_urls << QUrl::fromEncoded(uri.toUtf8());
    end(Outcome::chosen);
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
