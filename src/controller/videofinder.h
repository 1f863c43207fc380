// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "model/sourcefile.h"

#include <QByteArrayView>
#include <QList>
#include <QUrl>

namespace quorvale {

/// The accepted videos among `urls`, in order: a folder stands for the accepted entries of its
/// whole tree, anything else for itself, as localFile() gives it. URLs that are not of local files
/// are left out.
///
/// Entries count by their extension alone, so a folder named like a video is among them; a path
/// where nothing is counts too. Hidden entries are passed over and hidden folders not entered, nor
/// are packages (see isPackage()), links to folders and folders that cannot be read. A tree's
/// entries come folder by folder in the order of their names' bytes, each folder's content right
/// behind the folder. Reads the file system; blocks until the trees are read.
QList<SourceFile> findVideos(const QList<QUrl> &urls);

/// Whether a folder called `name` is a package: a folder that the user is to take for one file,
/// such as an application or a photo library. Told by the extension, as on systems that have no
/// other mark for it.
bool isPackage(QByteArrayView name);

} // namespace quorvale
