// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "model/sourcefile.h"

#include <QHash>

namespace quorvale {

/// Counts the jobs per file, so that whether a file is queued costs one look-up. Files are told
/// apart by their standardised path: dot and dot-dot components resolved, links not followed.
class QueuedFiles
{
public:
    /// Makes room for so many more files at once.
    void reserve(qsizetype more) { m_jobs.reserve(m_jobs.size() + more); }
    void insert(const SourceFile &file) { ++m_jobs[standardisedPath(file)]; }
    void remove(const SourceFile &file);
    bool contains(const SourceFile &file) const
    {
        return !m_jobs.isEmpty() && m_jobs.contains(standardisedPath(file));
    }

private:
    static QByteArray standardisedPath(const SourceFile &file);

    QHash<QByteArray, qsizetype> m_jobs;
};

} // namespace quorvale
