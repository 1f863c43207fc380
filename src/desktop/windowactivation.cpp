// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "windowactivation.h"

#include <QGuiApplication>
#include <QWindow>

#ifdef QT_DBUS_LIB
#include "activationtoken.h"
#endif

#if QT_CONFIG(xcb)
#include <cstdlib>
#include <cstring>

#include <xcb/xcb.h>
#endif

using namespace Qt::StringLiterals;

namespace quorvale {

namespace {

#if QT_CONFIG(xcb)

xcb_atom_t atom(xcb_connection_t *connection, const QByteArray &name)
{
    auto *reply = xcb_intern_atom_reply(
        connection,
        xcb_intern_atom(connection, 0, static_cast<uint16_t>(name.size()), name.constData()),
        nullptr);
    const xcb_atom_t atom = reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
    std::free(reply); // NOLINT(cppcoreguidelines-no-malloc)
    return atom;
}

// When the user did it, by the X server's clock; 0 where that is not known.
uint32_t timeIn(const QString &startupId)
{
    return startupId.section(u"_TIME"_s, 1).toUInt();
}

void send(xcb_connection_t *connection, xcb_window_t root, uint32_t eventMask,
          const xcb_client_message_event_t &event)
{
    xcb_send_event(connection, 0, root, eventMask, reinterpret_cast<const char *>(&event));
}

// Asks the window manager as the user's own tools do (_NET_ACTIVE_WINDOW of the Extended Window
// Manager Hints), because it is the user who has opened something. What Qt asks may be refused: it
// does not know when that was.
void askWindowManager(xcb_connection_t *connection, xcb_window_t root, xcb_window_t window,
                      uint32_t time)
{
    constexpr uint32_t byUser = 2;
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = atom(connection, "_NET_ACTIVE_WINDOW");
    event.data.data32[0] = byUser;
    event.data.data32[1] = time;
    send(connection, root,
         XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT, event);
}

// Says to everyone that waits for the window of a start that none will come: the message "remove"
// of the Startup Notification Protocol, in pieces as long as an event holds.
void endStartupNotification(xcb_connection_t *connection, xcb_window_t root, xcb_window_t window,
                            const QString &startupId)
{
    const QByteArray message = "remove: ID=" + startupId.toUtf8() + '\0';
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 8;
    event.window = window;
    event.type = atom(connection, "_NET_STARTUP_INFO_BEGIN");
    constexpr qsizetype piece = sizeof event.data.data8;
    for (qsizetype begin = 0; begin < message.size(); begin += piece) {
        const QByteArray bytes = message.mid(begin, piece).leftJustified(piece, '\0');
        std::memcpy(event.data.data8, bytes.constData(), piece);
        send(connection, root, XCB_EVENT_MASK_PROPERTY_CHANGE, event);
        event.type = atom(connection, "_NET_STARTUP_INFO");
    }
}

bool bringToFrontOnX11(const QWindow &window, const QString &startupId)
{
    auto *x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (!x11)
        return false;
    xcb_connection_t *connection = x11->connection();
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
    const auto id = static_cast<xcb_window_t>(window.winId());
    askWindowManager(connection, root, id, timeIn(startupId));
    if (!startupId.isEmpty())
        endStartupNotification(connection, root, id, startupId);
    xcb_flush(connection);
    return true;
}

#else

bool bringToFrontOnX11(const QWindow & /*window*/, const QString & /*startupId*/)
{
    return false;
}

#endif

const auto startupIdKey = u"desktop-startup-id"_s;

// False where there are none.
bool useToken(QWindow &window, const QVariantMap &platformData)
{
#ifdef QT_DBUS_LIB
    const QVariant token =
        platformData.value(u"activation-token"_s, platformData.value(startupIdKey));
    return useActivationToken(window, token.toString());
#else
    Q_UNUSED(window)
    Q_UNUSED(platformData)
    return false;
#endif
}

} // namespace

void bringToFront(QWindow &window, const QVariantMap &platformData)
{
    window.setWindowStates(window.windowStates() & ~Qt::WindowMinimized);
    window.raise();
    if (!bringToFrontOnX11(window, platformData.value(startupIdKey).toString())
        && !useToken(window, platformData))
        window.requestActivate();
}

void claimStart(QWindow &window, const QVariantMap &platformData)
{
    if (!platformData.isEmpty())
        useToken(window, platformData);
}

} // namespace quorvale
