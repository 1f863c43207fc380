// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "referencequeue.h"

#include <QDir>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quorvale::test {

using enum JobState::Case;

void ReferenceQueue::add(const QStringList &paths)
{
    QSet<QString> queued;
    for (const Job &job : std::as_const(jobs)) {
        if (!job.state.is(completed))
            queued << QDir::cleanPath(job.source);
    }
    QStringList fresh;
    for (const QString &path : paths) {
        if (path.endsWith(u".mkv"_s) && !queued.contains(QDir::cleanPath(path)))
            fresh << path;
    }
    std::ranges::stable_sort(fresh, {},
                             [](const QString &path) { return path.mid(path.lastIndexOf(u'/')); });
    for (const QString &path : std::as_const(fresh))
        jobs << Job{path, {}, 0.0, JobState::waiting()};
}

void ReferenceQueue::remove(const QUuid &id)
{
    jobs.removeIf([&](const Job &job) { return job.id == id; });
}

void ReferenceQueue::requeue(const QUuid &id)
{
    if (Job *job = find(id)) {
        job->state = JobState::waiting();
        job->progress = 0.0;
    }
}

void ReferenceQueue::move(const QUuid &id, qsizetype offset)
{
    const qsizetype from = rowOf(id);
    if (m_isConverting || from < 0)
        return;
    jobs.move(from, std::clamp<qsizetype>(from + offset, 0, jobs.size() - 1));
}

void ReferenceQueue::move(const QList<int> &rows, qsizetype destination)
{
    if (m_isConverting)
        return;
    QList<Job> before;
    QList<Job> moved;
    QList<Job> behind;
    for (qsizetype row = 0; row < jobs.size(); ++row) {
        if (rows.contains(row))
            moved << jobs[row];
        else
            (row < destination ? before : behind) << jobs[row];
    }
    jobs = before + moved + behind;
}

void ReferenceQueue::clearCompleted()
{
    jobs.removeIf([](const Job &job) { return job.state.is(completed); });
}

void ReferenceQueue::start()
{
    if (m_isConverting)
        return;
    m_ids.clear();
    for (const Job &job : std::as_const(jobs)) {
        if (!job.state.is(completed))
            m_ids << job.id;
    }
    if (m_ids.isEmpty()) {
        alertMessage = u"Add or re-queue at least one video first."_s;
        return;
    }
    m_isConverting = true;
    m_isCancelled = false;
    convertNext();
}

void ReferenceQueue::cancel()
{
    if (!m_isConverting)
        return;
    m_isCancelled = true;
    switch (plans[m_conversions - 1].atInterrupt) {
    case ConversionPlan::AtInterrupt::dies:
        return finish(JobState::cancelled());
    case ConversionPlan::AtInterrupt::ignoresIt:
        return;
    case ConversionPlan::AtInterrupt::fails:
        return finish(JobState::failed(u"FFmpeg could not convert this file."_s));
    case ConversionPlan::AtInterrupt::succeeds:
        return finish(JobState::completed());
    }
}

void ReferenceQueue::endConversion()
{
    switch (plans[m_conversions - 1].atEnd) {
    case ConversionPlan::AtEnd::succeeds:
        return finish(JobState::completed());
    case ConversionPlan::AtEnd::fails:
        return finish(JobState::failed(u"no"_s));
    case ConversionPlan::AtEnd::crashes:
        return finish(JobState::cancelled());
    }
}

void ReferenceQueue::finish(const JobState &state)
{
    if (Job *job = find(m_convertingId)) {
        job->state = state;
        if (state.is(completed))
            job->progress = 1.0;
    }
    m_convertingId = {};
    if (state.is(cancelled))
        m_isCancelled = true;
    convertNext();
}

void ReferenceQueue::convertNext()
{
    while (!m_isCancelled && !m_ids.isEmpty()) {
        const QUuid id = m_ids.takeFirst();
        if (Job *job = find(id)) {
            m_convertingId = id;
            job->state = JobState::converting();
            job->progress = plans[m_conversions++].progress;
            return;
        }
    }
    m_isConverting = false;
}

qsizetype ReferenceQueue::completedCount() const
{
    return std::ranges::count_if(jobs, [](const Job &job) { return job.state.is(completed); });
}

double ReferenceQueue::overallProgress() const
{
    double sum = 0.0;
    for (const Job &job : jobs)
        sum += job.state.is(completed) ? 1.0 : job.progress;
    return jobs.isEmpty() ? 0.0 : sum / static_cast<double>(jobs.size());
}

qsizetype ReferenceQueue::rowOf(const QUuid &id) const
{
    const auto job = std::ranges::find(jobs, id, &Job::id);
    return job == jobs.end() ? -1 : job - jobs.begin();
}

const ReferenceQueue::Job *ReferenceQueue::find(const QUuid &id) const
{
    const qsizetype row = rowOf(id);
    return row < 0 ? nullptr : &jobs[row];
}

ReferenceQueue::Job *ReferenceQueue::find(const QUuid &id)
{
    const qsizetype row = rowOf(id);
    return row < 0 ? nullptr : &jobs[row];
}

} // namespace quorvale::test
