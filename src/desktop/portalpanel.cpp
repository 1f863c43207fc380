// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "portalpanel.h"

#include "activewindow.h"
#include "exportedwindow.h"
#include "inputbarrier.h"
#include "model/filepath.h"
#include "portalfilter.h"
#include "portalrequest.h"

#include <QDir>

#include <utility>

using namespace Qt::StringLiterals;

namespace quorvale {

namespace {

// The first versions of the portal's file chooser, and of that with folders.
constexpr uint firstVersion = 1;
constexpr uint versionWithFolders = 3;

bool isForFolders(const OpenPanelRequest &request)
{
    return request.choice == OpenPanelRequest::Choice::folders;
}

QVariantMap optionsFor(const OpenPanelRequest &request, const QUrl &folder)
{
    QVariantMap options{{u"accept_label"_s, request.prompt},
                        {u"modal"_s, true},
                        {u"multiple"_s, request.allowsMultiple}};
    if (isForFolders(request)) // where choosers let the user make one, too
        options.insert(u"directory"_s, true);
    else
        options.insert(u"filters"_s, portalVideoFilters());
    // A path in the file system's bytes, with the byte that ends it
    options.insert(u"current_folder"_s, filePath(folder).append('\0'));
    return options;
}

} // namespace

PortalPanel::PortalPanel(std::unique_ptr<OpenPanel> otherwise, std::function<QDBusConnection()> bus)
    : m_otherwise(std::move(otherwise)), m_bus(std::move(bus))
{
}

std::optional<QList<QUrl>> PortalPanel::run(const OpenPanelRequest &request)
{
    const QDBusConnection bus = m_bus();
    if (!bus.isConnected())
        return m_otherwise->run(request);

    const QUrl home = QUrl::fromLocalFile(QDir::homePath());
    const ExportedWindow parent(activeWindow());
    PortalRequest portal(bus);
    const auto outcome = [&] {
        const InputBarrier barrier;
        QObject::connect(&barrier, &InputBarrier::pressed, &portal, &PortalRequest::takePress);
        QObject::connect(&barrier, &InputBarrier::escaped, &portal, &PortalRequest::abandon);
        return portal.open(isForFolders(request) ? versionWithFolders : firstVersion, parent.name(),
                           request.title,
                           optionsFor(request, m_lastFolders.value(request.title, home)));
    }();
    switch (outcome) {
    case PortalRequest::Outcome::failed:
        return m_otherwise->run(request);
    case PortalRequest::Outcome::cancelled:
        return std::nullopt;
    case PortalRequest::Outcome::chosen:
        break;
    }
    if (!portal.urls().isEmpty())
        m_lastFolders[request.title] =
            portal.urls().first().adjusted(QUrl::StripTrailingSlash | QUrl::RemoveFilename);
    return portal.urls();
}

} // namespace quorvale
