// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "outputurl.h"

#include "model/filename.h"
#include "model/filepath.h"

#include <filesystem>

namespace quorvale {

namespace {

bool isTaken(const QByteArray &path)
{
    std::error_code error;
    return std::filesystem::exists(
        std::filesystem::symlink_status(path.toStdString(), error)); // of the link itself
}

} // namespace

QUrl outputUrl(const QUrl &source, const QUrl &destination, const ConversionSettings &settings,
               const std::stop_token &givenUp)
{
    const QByteArray sourcePath = filePath(source);
    QByteArray folder = filePath(destination);
    if (!folder.endsWith('/'))
        folder += '/';
    const auto candidate = [&](int attempt) {
        return folder + outputFileName(lastPathComponent(sourcePath), settings.codec, attempt);
    };
    int attempt = 1;
    while (!settings.overwrite && !givenUp.stop_requested() && isTaken(candidate(attempt)))
        ++attempt;
    return fileUrl(candidate(attempt));
}

} // namespace quorvale
