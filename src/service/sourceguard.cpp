// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "sourceguard.h"

#include "model/filepath.h"
#include "systemerror.h"

#include <filesystem>

using namespace Qt::StringLiterals;

namespace quorvale {

namespace {

std::filesystem::path pathOf(const QUrl &file)
{
    return filePath(file).toStdString();
}

} // namespace

void guardSource(const QUrl &source, const QUrl &output)
{
    std::error_code error; // what is not there is not the same
    if (std::filesystem::equivalent(pathOf(source), pathOf(output), error) && !error)
        throw SystemError(
            u"“%1” is the video that is to be converted, so it is not replaced."_s.arg(
                shownPath(filePath(output))));
}

} // namespace quorvale
