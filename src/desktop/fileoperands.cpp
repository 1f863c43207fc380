// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "fileoperands.h"

#include "model/filepath.h"

#include <filesystem>
#include <system_error>

namespace quorvale {

QList<QUrl> fileOperands(const QList<QByteArray> &words, const QByteArray &workingFolder)
{
    QList<QUrl> files;
    bool mayBeOption = true;
    for (const QByteArray &word : words) {
        if (mayBeOption && word.startsWith('-')) {
            mayBeOption = word != "--";
            continue;
        }
        if (word.isEmpty() || (!word.startsWith('/') && workingFolder.isEmpty()))
            continue;
        const auto path = std::filesystem::path(workingFolder.toStdString()) / word.toStdString();
        files << fileUrl(QByteArray::fromStdString(path.lexically_normal().string()));
    }
    return files;
}

QByteArray workingFolder()
{
    std::error_code error;
    return QByteArray::fromStdString(std::filesystem::current_path(error).string());
}

} // namespace quorvale
