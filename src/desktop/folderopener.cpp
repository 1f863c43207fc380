// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "folderopener.h"

#include <QDesktopServices>

namespace quorvale {

void FolderOpener::reveal(const QUrl &folder)
{
    const QUrl parent = folder.adjusted(QUrl::StripTrailingSlash).adjusted(QUrl::RemoveFilename);
    // The root has no other name than its slash; strip others, for handlers that compare paths.
    QDesktopServices::openUrl(parent.adjusted(QUrl::StripTrailingSlash));
}

} // namespace quorvale
