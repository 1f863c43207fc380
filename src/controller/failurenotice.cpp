// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "failurenotice.h"

#include "joblistmodel.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quorvale {

FailureNotice::FailureNotice(const JobListModel &jobs) : m_jobs(jobs)
{
    connect(&jobs, &JobListModel::changed, this, &FailureNotice::follow);
}

QString FailureNotice::text() const
{
    if (m_failedCount <= m_readCount)
        return {};
    return u"%1 of %2 %3 failed"_s.arg(QString::number(m_failedCount), QString::number(m_jobCount),
                                       m_jobCount == 1 ? u"video"_s : u"videos"_s);
}

void FailureNotice::dismiss()
{
    m_readCount = m_failedCount;
    Q_EMIT changed();
}

// Most changes are those of a progress.
void FailureNotice::follow()
{
    if (m_jobs.failedCount() == m_failedCount && m_jobs.rowCount() == m_jobCount)
        return;
    m_failedCount = m_jobs.failedCount();
    m_jobCount = m_jobs.rowCount();
    m_readCount = std::min(m_readCount, m_failedCount);
    Q_EMIT changed();
}

} // namespace quorvale
