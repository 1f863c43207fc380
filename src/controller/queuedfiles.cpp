// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "queuedfiles.h"

#include <QDir>

namespace quorvale {

void QueuedFiles::remove(const QUrl &file)
{
    const auto entry = m_jobs.find(standardisedPath(file));
    if (entry != m_jobs.end() && --entry.value() == 0)
        m_jobs.erase(entry);
}

QString QueuedFiles::standardisedPath(const QUrl &file)
{
    return QDir::cleanPath(file.toLocalFile());
}

} // namespace quorvale
