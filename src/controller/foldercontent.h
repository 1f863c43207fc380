// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "model/sourcefile.h"

#include <QByteArray>
#include <QList>

#include <functional>
#include <vector>

namespace quorvale {

/// A place where videos are looked for.
struct SearchedPlace
{
    SourceFile file;
    bool isFolder = false; ///< known to be a folder, with a path that ends in a slash
};

/// What there is at one place: the accepted videos, and the folders to look into next.
struct FolderContent
{
    struct Folder
    {
        QByteArray path;        ///< with a slash at its end
        qsizetype position = 0; ///< how many of the videos come before those that are in it
    };

    QList<SourceFile> videos;
    std::vector<Folder> folders;
    bool isUnreadable = false; ///< there may be more, but the system does not say so
};

/// What there is at `place`: the accepted entries of a folder, in the order of their names' bytes,
/// or else the file itself, when it is accepted.
///
/// Files count by their extension alone, so a folder named like a video is among them; a path
/// where nothing is counts too. Hidden entries are passed over; packages (see isPackage()) and
/// links to folders are not looked into. A folder that cannot be read to its end is empty, and
/// unreadable; one that is gone is only empty.
///
/// Reads the file system and waits for it. `goesOn` is asked between any two calls to it; when it
/// says false, there is nothing. Any thread.
FolderContent contentOf(const SearchedPlace &place, const std::function<bool()> &goesOn);

} // namespace quorvale
