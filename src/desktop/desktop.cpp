// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "desktop.h"

#include "dialogpanel.h"
#include "folderopener.h"
#include "soleinstance.h"

#ifdef QT_DBUS_LIB
#include "applicationservice.h"
#include "batchcompanion.h"
#include "busfilemanager.h"
#include "businstance.h"
#include "portalpanel.h"
#include "silentbus.h"
#endif

namespace quorvale {

void prepareForDesktop()
{
#ifdef QT_DBUS_LIB
    leaveSilentSessionBus();
#endif
}

QVariantMap platformDataOfStart()
{
#ifdef QT_DBUS_LIB
    return ApplicationService::platformDataOfStart();
#else
    return {};
#endif
}

std::unique_ptr<Instance> makeInstance(const QList<QUrl> &files, const QVariantMap &platformData)
{
#ifdef QT_DBUS_LIB
    return std::make_unique<BusInstance>(QDBusConnection::sessionBus(), files, platformData);
#else
    Q_UNUSED(files)
    Q_UNUSED(platformData)
    return std::make_unique<SoleInstance>();
#endif
}

std::unique_ptr<QObject> accompany(const ConverterViewModel &model)
{
#ifdef QT_DBUS_LIB
    return std::make_unique<BatchCompanion>(model);
#else
    Q_UNUSED(model)
    return {};
#endif
}

std::unique_ptr<OpenPanel> makeOpenPanel()
{
    auto dialogs = std::make_unique<DialogPanel>();
#ifdef QT_DBUS_LIB
    return std::make_unique<PortalPanel>(std::move(dialogs));
#else
    return dialogs;
#endif
}

std::unique_ptr<FileManager> makeFileManager()
{
#ifdef QT_DBUS_LIB
    return std::make_unique<BusFileManager>();
#else
    return std::make_unique<FolderOpener>();
#endif
}

} // namespace quorvale
