// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "foldercontent.h"

#include "model/filename.h"
#include "package.h"
#include "service/ffmpegservice.h"

#include <QStringBuilder>

#include <algorithm>
#include <memory>
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

bool isFolder(const QByteArray &path)
{
    struct stat facts = {};
    return ::stat(path.constData(), &facts) == 0 && S_ISDIR(facts.st_mode);
}

bool isRealFolder(int folder, const dirent &entry)
{
    if (entry.d_type != DT_UNKNOWN)
        return entry.d_type == DT_DIR;
    // Some file systems tell the type only when asked for it.
    struct stat facts = {};
    return ::fstatat(folder, entry.d_name, &facts, AT_SYMLINK_NOFOLLOW) == 0
           && S_ISDIR(facts.st_mode);
}

// The visible entries of a folder, in the order of their names' bytes.
std::vector<Entry> entriesOf(const QByteArray &folder, const std::function<bool()> &goesOn)
{
    std::vector<Entry> entries;
    const std::unique_ptr<DIR, int (*)(DIR *)> stream(::opendir(folder.constData()), ::closedir);
    if (!stream)
        return entries;
    while (goesOn()) {
        // The C library's readdir is safe in threads that read streams of their own.
        const dirent *entry = ::readdir(stream.get()); // NOLINT(concurrency-mt-unsafe)
        if (!entry) {
            std::ranges::sort(entries, {}, &Entry::name);
            return entries;
        }
        if (entry->d_name[0] != '.')
            entries.push_back({entry->d_name, isRealFolder(::dirfd(stream.get()), *entry)});
    }
    return {};
}

} // namespace

FolderContent contentOf(const SearchedPlace &place, const std::function<bool()> &goesOn)
{
    QByteArray path = place.file.path();
    if (!place.isFolder && !isFolder(path)) {
        if (isAccepted(lastPathComponent(path)))
            return {{place.file}, {}};
        return {};
    }
    if (!path.endsWith('/'))
        path += '/';
    FolderContent content;
    for (const Entry &entry : entriesOf(path, goesOn)) {
        const QByteArrayView name(entry.name);
        if (isAccepted(name))
            content.videos.emplaceBack(path % name);
        if (entry.isFolder && !isPackage(name))
            content.folders.push_back({path % name % '/', content.videos.size()});
    }
    return content;
}

} // namespace quorvale
