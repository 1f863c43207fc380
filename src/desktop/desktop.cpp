// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "desktop.h"

#include "dialogpanel.h"
#include "folderopener.h"

#ifdef QT_DBUS_LIB
#include "busfilemanager.h"
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
