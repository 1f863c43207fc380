// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QFuture>
#include <QObject>
#include <QPromise>
#include <QString>

#include <memory>

class QWindow;

namespace quorvale {

/// A window by the name under which the desktop's portals know it as the parent of their own
/// windows ("Window Identifiers" of the XDG desktop portal), as long as the object lives. Main
/// thread.
class ExportedWindow : public QObject
{
    Q_OBJECT

public:
    /// Exports the window, which may be null.
    explicit ExportedWindow(QWindow *window);
    ~ExportedWindow() override;

    /// The name, which a Wayland compositor chooses and tells in its events; empty where the window
    /// has none, or when the compositor has told none within half a second.
    QFuture<QString> name() const { return m_name.future(); }

private:
    class WaylandExport;

    bool exportFromWayland(QWindow &window);
    void take(const QString &name);

    QPromise<QString> m_name;
    std::unique_ptr<WaylandExport> m_export;
};

} // namespace quorvale
