// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "batchreport.h"

#include "shownjob.h"

using namespace Qt::StringLiterals;

namespace quorvale {

void BatchReport::begin(qsizetype videos)
{
    m_videos = videos;
    m_completed = 0;
    m_failed = 0;
    Q_EMIT said(u"Converting %1 %2."_s.arg(videos).arg(videos == 1 ? u"video"_s : u"videos"_s));
}

void BatchReport::fail(const ShownJob &job)
{
    ++m_failed;
    Q_EMIT said(u"%1 failed: %2"_s.arg(job.fileName(), job.mainMessage()));
}

void BatchReport::end(bool isCancelled)
{
    const bool isCutShort = isCancelled && m_completed < m_videos;
    const QString failures = m_failed > 0 ? u", %1 failed"_s.arg(m_failed) : QString();
    Q_EMIT said(u"%1: %2 complete%3."_s.arg(isCutShort ? u"Cancelled"_s : u"Finished"_s)
                    .arg(m_completed)
                    .arg(failures));
}

} // namespace quorvale
