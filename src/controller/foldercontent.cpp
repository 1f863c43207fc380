// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "foldercontent.h"

#include "model/filename.h"
#include "package.h"
#include "service/ffmpegservice.h"

#include <QStringBuilder>

#include <algorithm>
#include <cerrno>
#include <memory>
#include <optional>
#include <string>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

namespace quorvale {

namespace {

struct Entry
{
    std::string name;
    bool isFolder = false; // a real one, not a link to one
};

// Decodes no more of the name than its extension: most of a large tree's cost lies in names.
bool isAccepted(QByteArrayView name)
{
    return FFmpegService::supportedExtensions().contains(lowerCaseExtension(name));
}

// Whether the error says that there is nothing, or nothing any more, rather than that nobody knows.
bool saysThatNothingIsThere(int error)
{
    return error == ENOENT || error == ENOTDIR;
}

bool isRealFolder(int folder, const dirent &entry)
{
    if (entry.d_type != DT_UNKNOWN)
        return entry.d_type == DT_DIR;
    // Some file systems tell the type only when asked for it. What even then tells nothing is
    // looked into, which fails and is spoken of.
    struct stat facts = {};
    return ::fstatat(folder, entry.d_name, &facts, AT_SYMLINK_NOFOLLOW) != 0
           || S_ISDIR(facts.st_mode);
}

// The visible entries of a folder, in the order of their names' bytes; nothing when it cannot be
// read to its end.
std::optional<std::vector<Entry>> entriesOf(const QByteArray &folder,
                                            const std::function<bool()> &goesOn)
{
    std::vector<Entry> entries;
    const std::unique_ptr<DIR, int (*)(DIR *)> stream(::opendir(folder.constData()), ::closedir);
    if (!stream)
        return saysThatNothingIsThere(errno) ? std::optional(entries) : std::nullopt;
    while (goesOn()) {
        errno = 0;
        // The C library's readdir is safe in threads that read streams of their own.
        const dirent *entry = ::readdir(stream.get()); // NOLINT(concurrency-mt-unsafe)
        if (!entry && errno != 0)
            return std::nullopt;
        if (!entry) {
            std::ranges::sort(entries, {}, &Entry::name);
            return entries;
        }
        if (entry->d_name[0] != '.')
            entries.push_back({entry->d_name, isRealFolder(::dirfd(stream.get()), *entry)});
    }
    return std::vector<Entry>();
}

} // namespace

FolderContent contentOf(const SearchedPlace &place, const std::function<bool()> &goesOn)
{
    FolderContent content;
    QByteArray path = place.file.path();
    if (!place.isFolder) {
        struct stat facts = {};
        const int error = ::stat(path.constData(), &facts) == 0 ? 0 : errno;
        if (error != 0 || !S_ISDIR(facts.st_mode)) {
            if (isAccepted(lastPathComponent(path)))
                content.videos << place.file;
            else
                content.isUnreadable = error != 0 && !saysThatNothingIsThere(error);
            return content;
        }
    }
    if (!path.endsWith('/'))
        path += '/';
    const auto entries = entriesOf(path, goesOn);
    content.isUnreadable = !entries;
    if (!entries)
        return content;
    for (const Entry &entry : *entries) {
        const QByteArrayView name(entry.name);
        if (isAccepted(name))
            content.videos.emplaceBack(path % name);
        if (entry.isFolder && !isPackage(name))
            content.folders.push_back({path % name % '/', content.videos.size()});
    }
    return content;
}

} // namespace quorvale
