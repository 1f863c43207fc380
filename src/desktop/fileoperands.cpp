// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "fileoperands.h"

#include "model/filepath.h"

#include <filesystem>
#include <system_error>

namespace quorvale {

namespace {

// The working folder's own path has no links in it, so ".." goes up in its text. Behind a name that
// was given it may not: that may be a link, and then only the system knows what lies above.
QByteArray absolutePath(const QByteArray &word, const QByteArray &workingFolder)
{
    std::filesystem::path path = workingFolder.toStdString();
    bool isBehindName = false;
    for (const std::filesystem::path &part : std::filesystem::path(word.toStdString())) {
        if (part == ".")
            continue;
        if (part == ".." && !isBehindName) {
            path = path.parent_path();
        } else {
            path /= part; // the slash that an absolute path begins with takes the place of all
            isBehindName = true;
        }
    }
    return QByteArray::fromStdString(path.string());
}

} // namespace

QList<QUrl> fileOperands(const QList<QByteArray> &words, const QByteArray &workingFolder)
{
    QList<QUrl> files;
    bool mayBeOption = true;
    for (const QByteArray &word : words) {
        if (mayBeOption && word.startsWith('-')) {
            mayBeOption = word != "--";
            continue;
        }
        if (word.isEmpty())
            continue;
        if (word.startsWith('/') || !workingFolder.isEmpty())
            files << fileUrl(absolutePath(word, workingFolder));
        else
            qWarning("quorvale: Left out %s, because the working folder is gone.",
                     word.constData());
    }
    return files;
}

QByteArray workingFolder()
{
    std::error_code error;
    return QByteArray::fromStdString(std::filesystem::current_path(error).string());
}

} // namespace quorvale
