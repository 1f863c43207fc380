// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "specialfile.h"

#include "model/filepath.h"
#include "systemerror.h"

#include <filesystem>

using namespace Qt::StringLiterals;

namespace quorvale {

namespace {

QString nameOf(std::filesystem::file_type type)
{
    using enum std::filesystem::file_type;
    switch (type) {
    case fifo:
        return u"a named pipe"_s;
    case socket:
        return u"a socket"_s;
    case block:
    case character:
        return u"a device"_s;
    default:
        return {};
    }
}

} // namespace

void refuseSpecialFile(const QUrl &source)
{
    const QByteArray path = filePath(source);
    std::error_code error; // ffmpeg says what is wrong with the others
    const QString name = nameOf(std::filesystem::status(path.toStdString(), error).type());
    if (!name.isEmpty())
        throw SystemError(u"“%1” is %2, not a video file."_s.arg(shownPath(path), name));
}

} // namespace quorvale
