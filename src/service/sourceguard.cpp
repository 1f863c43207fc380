// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "sourceguard.h"

#include "systemerror.h"

#include <QFile>

#include <filesystem>

using namespace Qt::StringLiterals;

namespace quorvale {

namespace {

std::filesystem::path pathOf(const QUrl &file)
{
    return QFile::encodeName(file.toLocalFile()).toStdString();
}

} // namespace

void guardSource(const QUrl &source, const QUrl &output)
{
    std::error_code error; // what is not there is not the same
    if (std::filesystem::equivalent(pathOf(source), pathOf(output), error) && !error)
        throw SystemError(
            u"“%1” is the video that is to be converted, so it is not replaced."_s.arg(
                output.toLocalFile()));
}

} // namespace quorvale
