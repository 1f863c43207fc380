// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "videofinder.h"

#include "model/filename.h"
#include "service/ffmpegservice.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

using namespace Qt::StringLiterals;

namespace quorvale {

namespace {

namespace fs = std::filesystem;

struct Entry
{
    std::string name;
    bool isFolder = false; // a real one, not a link to one
};

QString decoded(const std::string &name)
{
    return QFile::decodeName(
        QByteArray::fromRawData(name.data(), static_cast<qsizetype>(name.size())));
}

bool isAccepted(QStringView name)
{
    return FFmpegService::supportedExtensions().contains(pathExtension(name).toString().toLower());
}

// The visible entries of a folder, in the order of their names' bytes; none when it cannot be read.
std::vector<Entry> entriesOf(const fs::path &folder)
{
    std::vector<Entry> entries;
    std::error_code error;
    for (fs::directory_iterator each(folder, error), end; !error && each != end;
         each.increment(error)) {
        std::string name = each->path().filename().string();
        if (name.starts_with('.'))
            continue;
        std::error_code unknown; // an entry of unknown type is simply not entered
        const bool isFolder = !each->is_symlink(unknown) && each->is_directory(unknown);
        entries.push_back({std::move(name), isFolder});
    }
    std::ranges::sort(entries, {}, &Entry::name);
    return entries;
}

void findBelow(const fs::path &folder, QList<QUrl> &found)
{
    for (const Entry &entry : entriesOf(folder)) {
        const QString name = decoded(entry.name);
        const fs::path path = folder / entry.name;
        if (isAccepted(name))
            found << QUrl::fromLocalFile(decoded(path.string()));
        if (entry.isFolder && !isPackage(name))
            findBelow(path, found);
    }
}

} // namespace

QList<QUrl> findVideos(const QList<QUrl> &urls)
{
    QList<QUrl> found;
    for (const QUrl &url : urls) {
        if (!url.isLocalFile())
            continue;
        const QString path = url.toLocalFile();
        if (QFileInfo(path).isDir())
            findBelow(QFile::encodeName(path).toStdString(), found);
        else if (isAccepted(lastPathComponent(path)))
            found << url;
    }
    return found;
}

bool isPackage(QStringView name)
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
        u"band"_s, u"key"_s, u"logicx"_s, u"numbers"_s, u"pages"_s, u"rtfd"_s, u"sparsebundle"_s,
        // media libraries
        u"aplibrary"_s, u"fcpbundle"_s, u"imovielibrary"_s, u"musiclibrary"_s, u"photolibrary"_s,
        u"photoslibrary"_s, u"theater"_s, u"tvlibrary"_s};
    return extensions.contains(pathExtension(name).toString().toLower());
}

} // namespace quorvale
