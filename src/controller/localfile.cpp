// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "localfile.h"

#include "model/filepath.h"

#include <QSysInfo>

using namespace Qt::StringLiterals;

namespace quorvale {

namespace {

bool isThisMachine(const QString &host)
{
    const auto is = [&](const QString &name) {
        return host.compare(name, Qt::CaseInsensitive) == 0;
    };
    return host.isEmpty() || is(u"localhost"_s) || is(QSysInfo::machineHostName());
}

} // namespace

std::optional<QUrl> localFile(const QUrl &url)
{
    // A URL that could not be decoded may still pass for a local one.
    if (!url.isValid() || !url.isLocalFile() || !isThisMachine(url.host()))
        return std::nullopt;
    if (url.path(QUrl::FullyDecoded).contains(QChar::Null))
        return std::nullopt;
    return url.host().isEmpty() ? url : fileUrl(filePath(url));
}

} // namespace quorvale
