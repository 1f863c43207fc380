// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "queuedfiles.h"

#include <QDir>

#include <algorithm>

namespace quorvale {

void QueuedFiles::remove(const SourceFile &file)
{
    const auto entry = m_jobs.find(standardisedPath(file));
    if (entry != m_jobs.end() && --entry.value() == 0)
        m_jobs.erase(entry);
}

QByteArray QueuedFiles::standardisedPath(const SourceFile &file)
{
    const QByteArray &path = file.path();
    // Nearly every path is clean, and to look is far quicker than to clean it.
    const auto isOdd = [](char a, char b) {
        return a == '/' && (b == '/' || b == '.');
    };
    if (path.startsWith('/') && !path.endsWith('/')
        && std::ranges::adjacent_find(path, isOdd) == path.cend())
        return path;
    // Only slashes and dots count, so each byte may pass for a character of its own.
    return QDir::cleanPath(QString::fromLatin1(path)).toLatin1();
}

} // namespace quorvale
