// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "exportedwindow.h"

#include <QGuiApplication>
#include <QTimer>
#include <QWindow>

#include <chrono>
#include <functional>
#include <utility>

#include <qpa/qplatformnativeinterface.h>
#include <wayland-client.h>
#include <xdg-foreign-unstable-v2.h>

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace quorvale {

/// The window's surface as exported by the protocol xdg-foreign. The compositor's events come in
/// Qt's own queue, hence on the main thread.
class ExportedWindow::WaylandExport
{
public:
    using Take = std::function<void(const QString &handle)>;

    /// Calls `take` once, with an empty handle where the compositor does not know the protocol.
    WaylandExport(wl_display *display, wl_surface *surface, Take take)
        : m_surface(surface), m_take(std::move(take)), m_registry(wl_display_get_registry(display)),
          m_endOfGlobals(wl_display_sync(display))
    {
        wl_registry_add_listener(m_registry, &registryListener, this);
        wl_callback_add_listener(m_endOfGlobals, &endOfGlobalsListener, this);
    }
    ~WaylandExport()
    {
        if (m_exported)
            zxdg_exported_v2_destroy(m_exported);
        if (m_exporter)
            zxdg_exporter_v2_destroy(m_exporter);
        wl_callback_destroy(m_endOfGlobals);
        wl_registry_destroy(m_registry);
    }

    WaylandExport(const WaylandExport &) = delete;
    WaylandExport &operator=(const WaylandExport &) = delete;

private:
    void takeGlobal(uint32_t name, const QByteArray &interface)
    {
        if (interface == zxdg_exporter_v2_interface.name)
            m_second = name;
        else if (interface == firstExporterName)
            m_first = name;
    }

    // By the second version of the protocol where the compositor has both, as the desktop's own
    // programs do.
    void exportSurface()
    {
        if (m_second == 0 && m_first == 0)
            return m_take({});
        // The first version differs from the second in names only, of which this one is sent.
        static const wl_interface first = [] {
            wl_interface interface = zxdg_exporter_v2_interface;
            interface.name = firstExporterName;
            return interface;
        }();
        m_exporter = static_cast<zxdg_exporter_v2 *>(
            m_second != 0 ? wl_registry_bind(m_registry, m_second, &zxdg_exporter_v2_interface, 1)
                          : wl_registry_bind(m_registry, m_first, &first, 1));
        m_exported = zxdg_exporter_v2_export_toplevel(m_exporter, m_surface);
        zxdg_exported_v2_add_listener(m_exported, &exportedListener, this);
    }

    static constexpr const char *firstExporterName = "zxdg_exporter_v1";
    static const wl_registry_listener registryListener;
    static const wl_callback_listener endOfGlobalsListener;
    static const zxdg_exported_v2_listener exportedListener;

    wl_surface *m_surface;
    Take m_take;
    wl_registry *m_registry;
    wl_callback *m_endOfGlobals;
    uint32_t m_first = 0; // the exporters' numbers among the globals, 0 for none
    uint32_t m_second = 0;
    zxdg_exporter_v2 *m_exporter = nullptr;
    zxdg_exported_v2 *m_exported = nullptr;
};

const wl_registry_listener ExportedWindow::WaylandExport::registryListener{
    [](void *self, wl_registry *, uint32_t name, const char *interface, uint32_t) {
        static_cast<WaylandExport *>(self)->takeGlobal(name, interface);
    },
    [](void *, wl_registry *, uint32_t) {
    }};

const wl_callback_listener ExportedWindow::WaylandExport::endOfGlobalsListener{
    [](void *self, wl_callback *, uint32_t) {
        static_cast<WaylandExport *>(self)->exportSurface();
    }};

const zxdg_exported_v2_listener ExportedWindow::WaylandExport::exportedListener{
    [](void *self, zxdg_exported_v2 *, const char *handle) {
        static_cast<WaylandExport *>(self)->m_take(QString::fromUtf8(handle));
    }};

ExportedWindow::ExportedWindow(QWindow *window)
{
    m_name.start();
    if (window && QGuiApplication::platformName() == "xcb"_L1)
        take(u"x11:"_s + QString::number(window->winId(), 16));
    else if (!window || !exportFromWayland(*window))
        take({});
}

ExportedWindow::~ExportedWindow() = default;

bool ExportedWindow::exportFromWayland(QWindow &window)
{
    QPlatformNativeInterface *platform = QGuiApplication::platformNativeInterface();
    if (!platform)
        return false;
    auto *display = static_cast<wl_display *>(platform->nativeResourceForIntegration("wl_display"));
    auto *surface =
        static_cast<wl_surface *>(platform->nativeResourceForWindow("surface", &window));
    if (!display || !surface)
        return false;
    m_export = std::make_unique<WaylandExport>(display, surface, [this](const QString &handle) {
        take(handle.isEmpty() ? QString() : u"wayland:"_s + handle);
    });
    QTimer::singleShot(500ms, this, [this] { take({}); });
    return true;
}

// The first one counts.
void ExportedWindow::take(const QString &name)
{
    if (m_name.future().isFinished())
        return;
    m_name.addResult(name);
    m_name.finish();
}

} // namespace quorvale
