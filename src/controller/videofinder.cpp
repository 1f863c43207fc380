// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "videofinder.h"

#include "localfile.h"
#include "model/filename.h"
#include "model/filepath.h"
#include "service/ffmpegservice.h"

#include <QStringBuilder>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace quorvale {

namespace {

struct Entry
{
    std::string name;
    bool isFolder = false; // a real one, not a link to one
};

// Decodes no more of the name than its extension: most of a large tree's cost lies in names.
QString lowerCaseExtension(QByteArrayView name)
{
    return QString::fromUtf8(pathExtension(name)).toLower();
}

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

// The visible entries of a folder, in the order of their names' bytes; none when it cannot be read.
std::vector<Entry> entriesOf(const QByteArray &folder)
{
    std::vector<Entry> entries;
    const std::unique_ptr<DIR, int (*)(DIR *)> stream(::opendir(folder.constData()), ::closedir);
    if (!stream)
        return entries;
    // The C library's readdir is safe in threads that read streams of their own.
    while (const dirent *entry = ::readdir(stream.get())) { // NOLINT(concurrency-mt-unsafe)
        if (entry->d_name[0] != '.')
            entries.push_back({entry->d_name, isRealFolder(::dirfd(stream.get()), *entry)});
    }
    std::ranges::sort(entries, {}, &Entry::name);
    return entries;
}

// The accepted entries below `folder`, which ends in a slash.
void findBelow(const QByteArray &folder, QList<SourceFile> &found)
{
    for (const Entry &entry : entriesOf(folder)) {
        if (isAccepted(entry.name))
            found.emplaceBack(folder % QByteArrayView(entry.name));
        if (entry.isFolder && !isPackage(entry.name))
            findBelow(folder % QByteArrayView(entry.name) % '/', found);
    }
}

} // namespace

QList<SourceFile> findVideos(const QList<QUrl> &urls)
{
    QList<SourceFile> found;
    for (const QUrl &url : urls) {
        const auto file = localFile(url);
        if (!file)
            continue;
        const QByteArray path = filePath(*file);
        if (isFolder(path))
            findBelow(path.endsWith('/') ? path : path + '/', found);
        else if (isAccepted(lastPathComponent(path)))
            found.emplaceBack(*file);
    }
    return found;
}

bool isPackage(QByteArrayView name)
{
    // The bundle types that macOS and its common applications declare as packages.
    static const QSet<QString> extensions{
        // programs and their parts
        u"app"_s, u"appex"_s, u"bundle"_s, u"component"_s, u"framework"_s, u"kext"_s,
        u"mdimporter"_s, u"plugin"_s, u"prefpane"_s, u"qlgenerator"_s, u"saver"_s, u"service"_s,
        u"vst"_s, u"vst3"_s, u"xpc"_s,
        // installers and developers' documents
        u"dsym"_s, u"mpkg"_s, u"pkg"_s, u"playground"_s, u"scptd"_s, u"workflow"_s, u"xcarchive"_s,
        u"xcodeproj"_s, u"xcworkspace"_s,
        // documents
        u"band"_s, u"cmproj"_s, u"key"_s, u"logicx"_s, u"numbers"_s, u"pages"_s, u"rtfd"_s,
        u"screenflow"_s, u"sparsebundle"_s,
        // media libraries and what backs them up
        u"aplibrary"_s, u"cocatalog"_s, u"eyetv"_s, u"fcarch"_s, u"fcpbundle"_s, u"imovielibrary"_s,
        u"lrlibrary"_s, u"migratedphotolibrary"_s, u"musiclibrary"_s, u"photolibrary"_s,
        u"photoslibrary"_s, u"theater"_s, u"tvlibrary"_s};
    return extensions.contains(lowerCaseExtension(name));
}

} // namespace quorvale
