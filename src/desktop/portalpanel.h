// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "controller/openpanel.h"

#include <QDBusConnection>
#include <QUrl>

#include <functional>
#include <memory>

namespace quorvale {

/// Lets the user choose several folders at once in the desktop's own dialog, which only the desktop
/// portal offers. Any other request goes to another panel, and so does one that the portal does not
/// bring to an end of the user's making: there is none, it cannot do it or it breaks off. Needs a
/// QApplication.
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
    QUrl m_lastFolder; // where the user was when the panel was last confirmed
};

} // namespace quorvale
