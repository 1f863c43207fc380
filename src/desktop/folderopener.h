// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "controller/filemanager.h"

namespace quorvale {

/// Opens a folder's parent with whatever opens folders, which is the Finder on macOS. Selects
/// nothing there: no desktop has a common way to say so.
class FolderOpener : public FileManager
{
public:
    void reveal(const QUrl &folder) override;
};

} // namespace quorvale
