// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QUrl>

namespace quorvale {

/// Creates the folder that is to hold the file `output`, with all missing parents; a folder that
/// exists is no error. Any thread.
///
/// Throws SystemError when a folder cannot be created, or when its file system cannot hold a name
/// as long as the file's.
void createFolderFor(const QUrl &output);

} // namespace quorvale
