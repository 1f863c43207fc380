// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "waylandglobals.h"

#include <QGuiApplication>
#include <QWindow>

#include <utility>

#include <qpa/qplatformnativeinterface.h>

namespace quorvale {

wl_display *waylandDisplay()
{
    QPlatformNativeInterface *platform = QGuiApplication::platformNativeInterface();
    return platform
               ? static_cast<wl_display *>(platform->nativeResourceForIntegration("wl_display"))
               : nullptr;
}

wl_surface *waylandSurface(QWindow &window)
{
    QPlatformNativeInterface *platform = QGuiApplication::platformNativeInterface();
    return platform
               ? static_cast<wl_surface *>(platform->nativeResourceForWindow("surface", &window))
               : nullptr;
}

const wl_registry_listener WaylandGlobals::registryListener{
    [](void *self, wl_registry *, uint32_t number, const char *interface, uint32_t) {
        static_cast<WaylandGlobals *>(self)->m_numbers.insert(interface, number);
    },
    [](void *, wl_registry *, uint32_t) {
    }};

const wl_callback_listener WaylandGlobals::endListener{[](void *self, wl_callback *, uint32_t) {
    static_cast<WaylandGlobals *>(self)->m_know();
}};

WaylandGlobals::WaylandGlobals(wl_display *display, std::function<void()> know)
    : m_know(std::move(know)), m_registry(wl_display_get_registry(display)),
      m_end(wl_display_sync(display))
{
    wl_registry_add_listener(m_registry, &registryListener, this);
    wl_callback_add_listener(m_end, &endListener, this);
}

WaylandGlobals::~WaylandGlobals()
{
    wl_callback_destroy(m_end);
    wl_registry_destroy(m_registry);
}

void *WaylandGlobals::bind(const wl_interface &interface) const
{
    const auto number = m_numbers.constFind(interface.name);
    if (number == m_numbers.cend())
        return nullptr;
    return wl_registry_bind(m_registry, *number, &interface, 1);
}

} // namespace quorvale
