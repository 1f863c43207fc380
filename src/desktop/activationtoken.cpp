// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "activationtoken.h"

#include "waylandglobals.h"

#include <QGuiApplication>
#include <QTimer>
#include <QWindow>

#include <chrono>
#include <utility>

#include <qpa/qplatformnativeinterface.h>
#include <xdg-activation-v1.h>

using namespace std::chrono_literals;

namespace quorvale {

namespace {

using Take = std::function<void(const QString &token)>;

// Deletes itself when it is done.
class TokenRequest : public QObject
{
public:
    TokenRequest(QWindow &window, QPlatformNativeInterface &platform, wl_display *display,
                 wl_surface *surface, Take take)
        : QObject(&window), m_platform(platform), m_surface(surface), m_take(std::move(take)),
          m_globals(display, [this] { ask(); })
    {
        QTimer::singleShot(500ms, this, [this] { end({}); });
    }
    ~TokenRequest() override
    {
        if (m_token)
            xdg_activation_token_v1_destroy(m_token);
        if (m_activation)
            xdg_activation_v1_destroy(m_activation);
    }

    TokenRequest(const TokenRequest &) = delete;
    TokenRequest &operator=(const TokenRequest &) = delete;

private:
    void ask()
    {
        m_activation =
            static_cast<xdg_activation_v1 *>(m_globals.bind(xdg_activation_v1_interface));
        if (!m_activation)
            return end({});
        m_token = xdg_activation_v1_get_activation_token(m_activation);
        xdg_activation_token_v1_add_listener(m_token, &tokenListener, this);
        xdg_activation_token_v1_set_surface(m_token, m_surface);
        // What the user has done, by which some compositors tell it from what nobody has asked for.
        auto *seat = static_cast<wl_seat *>(m_platform.nativeResourceForIntegration("wl_seat"));
        const auto serial =
            reinterpret_cast<quintptr>(m_platform.nativeResourceForIntegration("serial"));
        if (seat)
            xdg_activation_token_v1_set_serial(m_token, static_cast<uint32_t>(serial), seat);
        xdg_activation_token_v1_commit(m_token);
    }

    // The first end counts.
    void end(const QString &token)
    {
        if (const Take take = std::exchange(m_take, nullptr))
            take(token);
        deleteLater();
    }

    static const xdg_activation_token_v1_listener tokenListener;

    QPlatformNativeInterface &m_platform;
    wl_surface *m_surface;
    Take m_take;
    WaylandGlobals m_globals;
    xdg_activation_v1 *m_activation = nullptr;
    xdg_activation_token_v1 *m_token = nullptr;
};

const xdg_activation_token_v1_listener TokenRequest::tokenListener{
    [](void *self, xdg_activation_token_v1 *, const char *token) {
        static_cast<TokenRequest *>(self)->end(QString::fromUtf8(token));
    }};

} // namespace

void askForActivationToken(QWindow *window, Take take)
{
    QPlatformNativeInterface *platform = QGuiApplication::platformNativeInterface();
    if (!window || !platform)
        return take({});
    auto *display = static_cast<wl_display *>(platform->nativeResourceForIntegration("wl_display"));
    auto *surface = static_cast<wl_surface *>(platform->nativeResourceForWindow("surface", window));
    if (!display || !surface)
        return take({});
    new TokenRequest(*window, *platform, display, surface, std::move(take));
}

} // namespace quorvale
