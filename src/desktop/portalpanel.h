// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "controller/openpanel.h"

#include <QDBusConnection>
#include <QHash>
#include <QUrl>

#include <functional>
#include <memory>

namespace quorvale {

/// Lets the user choose in the desktop's own dialog, which the desktop portal opens, whatever
/// toolkit the desktop is made of. What the portal does not bring to an end of the user's making
/// goes to another panel: there is none, it cannot do it or it breaks off. The program's windows
/// are shut meanwhile, but can be closed; PortalRequest says what a press on them does. Each panel,
/// told by its title, asks to open in the user's home at first and then beside what was chosen
/// last, which portals heed from the fourth version of their file chooser on. Needs a
/// QGuiApplication.
class PortalPanel : public OpenPanel
{
public:
    /// `bus` is asked for the session bus at each use.
    explicit PortalPanel(std::unique_ptr<OpenPanel> otherwise,
                         std::function<QDBusConnection()> bus = QDBusConnection::sessionBus);

    std::optional<QList<QUrl>> run(const OpenPanelRequest &request) override;

private:
    const std::unique_ptr<OpenPanel> m_otherwise;
    const std::function<QDBusConnection()> m_bus;
    QHash<QString, QUrl> m_lastFolders; // by title, where the user was at the last confirmation
};

} // namespace quorvale
