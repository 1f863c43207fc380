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

// Like std::filesystem::create_directories(), which cannot be stopped half-way.
std::error_code create(const std::filesystem::path &folder, const std::stop_token &givenUp)
{
    std::error_code error;
    if (givenUp.stop_requested())
        return error;
    const auto type = std::filesystem::status(folder, error).type();
    if (type == std::filesystem::file_type::directory)
        return {};
    if (type != std::filesystem::file_type::not_found)
        return error ? error : std::make_error_code(std::errc::not_a_directory);
    error = create(folder.parent_path(), givenUp);
    if (!error && !givenUp.stop_requested())
        std::filesystem::create_directory(folder, error);
    return error;
}

} // namespace

void createFolderFor(const QUrl &output, const std::stop_token &givenUp)
{
    const std::filesystem::path file(filePath(output).toStdString());
    const std::filesystem::path folder = file.parent_path();

    std::error_code error = create(folder, givenUp);
    if (error)
        throw SystemError(u"The folder “%1” could not be created: %2"_s.arg(
            shownPath(folder.native()), reason(error)));
    if (givenUp.stop_requested())
        return;

    // Asking the file system beats knowing its limit: some count bytes, others characters.
    std::ignore = std::filesystem::symlink_status(file, error);
    if (error == std::errc::filename_too_long)
        throw SystemError(u"The name of the output file is too long: “%1”"_s.arg(
            shownPath(file.filename().native())));
}

} // namespace quorvale
