// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QHash>

#include <functional>

#include <wayland-client.h>

class QWindow;

namespace quorvale {

/// Qt's connection to the Wayland compositor, and the surface of a window there; null where there
/// is none, as on X11. Main thread.
wl_display *waylandDisplay();
wl_surface *waylandSurface(QWindow &window);

/// What a Wayland compositor offers beyond what Qt uses, by the name of the interface. Its events,
/// as those of all that is bound here, come in Qt's own queue, hence on the main thread.
class WaylandGlobals
{
public:
    /// Calls `know` once, when all that there is is known.
    WaylandGlobals(wl_display *display, std::function<void()> know);
    ~WaylandGlobals();

    WaylandGlobals(const WaylandGlobals &) = delete;
    WaylandGlobals &operator=(const WaylandGlobals &) = delete;

    /// A new object of this interface, in its first version; null where the compositor has none.
    void *bind(const wl_interface &interface) const;

private:
    static const wl_registry_listener registryListener;
    static const wl_callback_listener endListener;

    std::function<void()> m_know;
    QHash<QByteArray, uint32_t> m_numbers;
    wl_registry *m_registry;
    wl_callback *m_end; // of what it tells at first
};

} // namespace quorvale
