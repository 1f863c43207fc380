// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QHash>
#include <QUrl>

namespace quorvale {

/// Counts the jobs per file, so that whether a file is queued costs one look-up. Files are told
/// apart by their standardised path: dot and dot-dot components resolved, links not followed.
class QueuedFiles
{
public:
    /// Makes room for so many more files at once.
    void reserve(qsizetype more) { m_jobs.reserve(m_jobs.size() + more); }
    void insert(const QUrl &file) { ++m_jobs[standardisedPath(file)]; }
    void remove(const QUrl &file);
    bool contains(const QUrl &file) const
    {
        return !m_jobs.isEmpty() && m_jobs.contains(standardisedPath(file));
    }

private:
    static QByteArray standardisedPath(const QUrl &file);

    QHash<QByteArray, qsizetype> m_jobs;
};

} // namespace quorvale
