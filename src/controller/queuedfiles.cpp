// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "queuedfiles.h"

#include "model/filepath.h"

#include <QDir>

namespace quorvale {

void QueuedFiles::remove(const QUrl &file)
{
    const auto entry = m_jobs.find(standardisedPath(file));
    if (entry != m_jobs.end() && --entry.value() == 0)
        m_jobs.erase(entry);
}

QByteArray QueuedFiles::standardisedPath(const QUrl &file)
{
    // Only slashes and dots count, so each byte may pass for a character of its own.
    return QDir::cleanPath(QString::fromLatin1(filePath(file))).toLatin1();
}

} // namespace quorvale
