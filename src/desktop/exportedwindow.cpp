// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "exportedwindow.h"

#include "waylandglobals.h"

#include <QGuiApplication>
#include <QTimer>
#include <QWindow>

#include <chrono>
#include <functional>
#include <utility>

#include <xdg-foreign-unstable-v2.h>

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace quorvale {

/// The window's surface as exported by the protocol xdg-foreign.
class ExportedWindow::WaylandExport
{
public:
    using Take = std::function<void(const QString &handle)>;

    /// Calls `take` once, with an empty handle where the compositor does not know the protocol.
    WaylandExport(wl_display *display, wl_surface *surface, Take take)
        : m_surface(surface), m_take(std::move(take)),
          m_globals(display, [this] { exportSurface(); })
    {
    }
    ~WaylandExport()
    {
        if (m_exported)
            zxdg_exported_v2_destroy(m_exported);
        if (m_exporter)
            zxdg_exporter_v2_destroy(m_exporter);
    }

    WaylandExport(const WaylandExport &) = delete;
    WaylandExport &operator=(const WaylandExport &) = delete;

private:
    // By the second version of the protocol where the compositor has both, as the desktop's own
    // programs do.
    void exportSurface()
    {
        // The first version differs from the second in names only, of which this one is sent.
        static const wl_interface first = [] {
            wl_interface interface = zxdg_exporter_v2_interface;
            interface.name = "zxdg_exporter_v1";
            return interface;
        }();
        void *exporter = m_globals.bind(zxdg_exporter_v2_interface);
        m_exporter = static_cast<zxdg_exporter_v2 *>(exporter ? exporter : m_globals.bind(first));
        if (!m_exporter)
            return m_take({});
        m_exported = zxdg_exporter_v2_export_toplevel(m_exporter, m_surface);
        zxdg_exported_v2_add_listener(m_exported, &exportedListener, this);
    }

    static const zxdg_exported_v2_listener exportedListener;

    wl_surface *m_surface;
    Take m_take;
    WaylandGlobals m_globals;
    zxdg_exporter_v2 *m_exporter = nullptr;
    zxdg_exported_v2 *m_exported = nullptr;
};

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
    wl_display *const display = waylandDisplay();
    wl_surface *const surface = waylandSurface(window);
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
