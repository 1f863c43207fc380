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

// Something that is asked of the compositor for a window. Deletes itself when it is done.
class ActivationRequest : public QObject
{
public:
    ActivationRequest(QWindow &window, wl_display *display)
        : QObject(&window), m_window(window), m_globals(display, [this] { begin(); })
    {
    }
    ~ActivationRequest() override
    {
        if (m_activation)
            xdg_activation_v1_destroy(m_activation);
    }

    ActivationRequest(const ActivationRequest &) = delete;
    ActivationRequest &operator=(const ActivationRequest &) = delete;

protected:
    // By the protocol, on behalf of the window's surface; either is null where there is none.
    virtual void ask(xdg_activation_v1 *activation, wl_surface *surface) = 0;

private:
    void begin()
    {
        m_activation =
            static_cast<xdg_activation_v1 *>(m_globals.bind(xdg_activation_v1_interface));
        ask(m_activation, waylandSurface(m_window));
    }

    QWindow &m_window;
    WaylandGlobals m_globals;
    xdg_activation_v1 *m_activation = nullptr;
};

class TokenUse : public ActivationRequest
{
public:
    TokenUse(QWindow &window, wl_display *display, const QString &token)
        : ActivationRequest(window, display), m_token(token.toUtf8())
    {
    }

private:
    void ask(xdg_activation_v1 *activation, wl_surface *surface) override
    {
        if (activation && surface)
            xdg_activation_v1_activate(activation, m_token.constData(), surface);
        deleteLater();
    }

    QByteArray m_token;
};

class TokenRequest : public ActivationRequest
{
public:
    TokenRequest(QWindow &window, wl_display *display, Take take)
        : ActivationRequest(window, display), m_take(std::move(take))
    {
        QTimer::singleShot(500ms, this, [this] { end({}); });
    }
    ~TokenRequest() override
    {
        if (m_token)
            xdg_activation_token_v1_destroy(m_token);
    }

    TokenRequest(const TokenRequest &) = delete;
    TokenRequest &operator=(const TokenRequest &) = delete;

private:
    void ask(xdg_activation_v1 *activation, wl_surface *surface) override
    {
        if (!activation || !surface)
            return end({});
        m_token = xdg_activation_v1_get_activation_token(activation);
        xdg_activation_token_v1_add_listener(m_token, &tokenListener, this);
        xdg_activation_token_v1_set_surface(m_token, surface);
        // What the user has done, by which some compositors tell it from what nobody has asked for.
        QPlatformNativeInterface &platform = *QGuiApplication::platformNativeInterface();
        auto *seat = static_cast<wl_seat *>(platform.nativeResourceForIntegration("wl_seat"));
        const auto serial =
            reinterpret_cast<quintptr>(platform.nativeResourceForIntegration("serial"));
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

    Take m_take;
    xdg_activation_token_v1 *m_token = nullptr;
};

const xdg_activation_token_v1_listener TokenRequest::tokenListener{
    [](void *self, xdg_activation_token_v1 *, const char *token) {
        static_cast<TokenRequest *>(self)->end(QString::fromUtf8(token));
    }};

} // namespace

void askForActivationToken(QWindow *window, Take take)
{
    wl_display *const display = waylandDisplay();
    if (window && display)
        new TokenRequest(*window, display, std::move(take));
    else
        take({});
}

bool useActivationToken(QWindow &window, const QString &token)
{
    wl_display *const display = waylandDisplay();
    if (!display)
        return false;
    if (!token.isEmpty()) {
        new TokenUse(window, display, token);
        return true;
    }
    askForActivationToken(&window, [&window](const QString &own) {
        if (!own.isEmpty())
            useActivationToken(window, own);
    });
    return true;
}

} // namespace quorvale
