// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "controller/filemanager.h"

namespace quorvale {

/// The file manager of the desktop that the program runs on: the one that offers
/// org.freedesktop.FileManager1 on the session bus (the file manager D-Bus interface of
/// freedesktop.org). Without one, the folder that holds the folder is opened with whatever opens
/// folders.
class DesktopFileManager : public FileManager
{
public:
    void reveal(const QUrl &folder) override;
};

} // namespace quorvale
