// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QUrl>

#include <stop_token>

namespace quorvale {

/// Creates the folder that is to hold the file `output`, with all missing parents; a folder that
/// exists is no error. Any thread.
///
/// Throws SystemError when a folder cannot be created, or when its file system cannot hold a name
/// as long as the file's. Asks the disk nothing further once `givenUp` is requested.
void createFolderFor(const QUrl &output, const std::stop_token &givenUp = {});

} // namespace quorvale
