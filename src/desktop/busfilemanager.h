// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "controller/filemanager.h"

#include <QDBusConnection>

#include <chrono>
#include <functional>

namespace quorvale {

/// The file manager that offers org.freedesktop.FileManager1 on the session bus (the file manager
/// D-Bus interface of freedesktop.org). Where none answers, a FolderOpener steps in.
class BusFileManager : public FileManager
{
public:
    /// `bus` is asked for the session bus at each use; what does not answer in `patience`, which is
    /// long enough for a file manager that is started first, counts as absent.
    explicit BusFileManager(std::function<QDBusConnection()> bus = QDBusConnection::sessionBus,
                            std::chrono::milliseconds patience = std::chrono::seconds(15));

    void reveal(const QUrl &folder) override;

private:
    const std::function<QDBusConnection()> m_bus;
    const std::chrono::milliseconds m_patience;
};

} // namespace quorvale
