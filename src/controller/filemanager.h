// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QUrl>

namespace quorvale {

/// Shows files and folders in the desktop's file manager. An interface, so that the controller
/// needs no desktop.
class FileManager
{
public:
    virtual ~FileManager() = default;

    /// Brings the file manager to the front with `item`, the URL of a local file or folder,
    /// selected in its parent. Returns at once; what fails is not reported. Main thread.
    virtual void reveal(const QUrl &item) = 0;
};

} // namespace quorvale
