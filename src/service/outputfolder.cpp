// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "outputfolder.h"

#include "model/filepath.h"
#include "systemerror.h"

#include <filesystem>
#include <tuple>

using namespace Qt::StringLiterals;

namespace quorvale {

namespace {

QString reason(const std::error_code &error)
{
    return QString::fromLocal8Bit(error.message());
}

} // namespace

void createFolderFor(const QUrl &output)
{
    const std::filesystem::path file(filePath(output).toStdString());
    const std::filesystem::path folder = file.parent_path();

    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (!error && !std::filesystem::is_directory(folder, error) && !error)
        error = std::make_error_code(std::errc::not_a_directory);
    if (error)
        throw SystemError(u"The folder “%1” could not be created: %2"_s.arg(
            shownPath(folder.native()), reason(error)));

    // Asking the file system beats knowing its limit: some count bytes, others characters.
    std::ignore = std::filesystem::symlink_status(file, error);
    if (error == std::errc::filename_too_long)
        throw SystemError(u"The name of the output file is too long: “%1”"_s.arg(
            shownPath(file.filename().native())));
}

} // namespace quorvale
