// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "model/jobstate.h"

#include <QDir>
#include <QList>
#include <QSet>
#include <QString>
#include <QUuid>

#include <algorithm>
#include <optional>

namespace quorvale::test {

/// How one conversion goes.
struct ConversionPlan
{
    enum class AtInterrupt { dies, ignoresIt, fails, succeeds };
    enum class AtEnd { succeeds, fails, crashes };
    // What stands in its way.
    enum class Fault {
        none,
        slowProbe,
        noDescription, // by ffprobe, so that ffmpeg is asked
        hungProbe,
        hungDisk,
        noTool,
        brokenDisk,
        fewThreads,
        fewDescriptors
    };

    double progress = 0.0; // the fraction that it reports before it waits for its end
    AtInterrupt atInterrupt = AtInterrupt::dies;
    AtEnd atEnd = AtEnd::succeeds;
    Fault fault = Fault::none;

    /// It stands still before it begins, until it is told to begin or cancelled.
    bool stalls() const { return fault == Fault::hungProbe || fault == Fault::hungDisk; }
    /// It may fail at its beginning; what is there from earlier conversions may do for this one.
    bool mayNotBegin() const { return fault >= Fault::noTool; }
};

/// The queue and its batch as they are meant to be, as plainly as can be: the other side of a
/// comparison. A conversion stands still until it is told to end.
class ReferenceQueue
{
    using enum JobState::Case;

public:
    struct Job
    {
        QString source; // a path
        QUuid id;       // as the real queue has chosen it
        double progress = 0.0;
        JobState state = JobState::waiting();
    };

    struct Search
    {
        QString name;
        QList<QStringList> additions;
        bool hasEnded = false;
    };

    QList<Job> jobs;
    QList<Search> searches; // that are not handed over yet; the first four go on
    std::optional<QString> alertMessage;
    qsizetype additionsFound = 0; // by searches
    QList<ConversionPlan> plans;  // of the conversions, in turn
    qsizetype conversions = 0;    // that have been started so far
    bool isConverting = false;

    /// Names are compared character by character here, so they have to be of lower-case letters.
    void add(const QStringList &paths)
    {
        QSet<QString> queued;
        for (const Job &job : std::as_const(jobs)) {
            if (!job.state.is(completed))
                queued << QDir::cleanPath(job.source);
        }
        QList<Job> fresh;
        for (const QString &path : paths) {
            if (isVideo(path) && !queued.contains(QDir::cleanPath(path)))
                fresh << Job{path, {}};
        }
        std::ranges::stable_sort(
            fresh, {}, [](const Job &job) { return job.source.mid(job.source.lastIndexOf(u'/')); });
        jobs += fresh;
    }

    /// Adds each of these lists when their search, and all before it, have ended.
    void search(const QString &name, const QList<QStringList> &additions)
    {
        searches << Search{name, additions};
    }

    void endSearch(const QString &name)
    {
        std::ranges::find(searches, name, &Search::name)->hasEnded = true;
        while (!searches.isEmpty() && searches.first().hasEnded)
            handOver(searches.takeFirst());
        if (searches.isEmpty())
            m_foundBefore = 0;
    }

    /// Adds what has ended behind others.
    void stopSearches()
    {
        for (const Search &search : goingOn()) {
            if (search.hasEnded)
                handOver(search);
        }
        searches.clear();
        m_foundBefore = 0;
    }

    /// How many videos were found since there have been searches and none was stopped.
    qsizetype foundCount() const
    {
        qsizetype count = m_foundBefore;
        for (const Search &search : goingOn())
            count += search.hasEnded ? videoCount(search) : 0;
        return count;
    }

    void remove(const QUuid &id)
    {
        jobs.removeIf([&](const Job &job) { return job.id == id; });
    }

    void requeue(const QUuid &id)
    {
        if (Job *job = find(id)) {
            job->state = JobState::waiting();
            job->progress = 0.0;
        }
    }

    void move(const QUuid &id, qsizetype offset)
    {
        const Job *job = find(id);
        if (isConverting || !job)
            return;
        const qsizetype from = job - jobs.constData();
        jobs.move(from, std::clamp<qsizetype>(from + offset, 0, jobs.size() - 1));
    }

    void move(const QList<int> &rows, qsizetype destination)
    {
        if (isConverting)
            return;
        QList<Job> before;
        QList<Job> moved;
        QList<Job> behind;
        for (qsizetype row = 0; row < jobs.size(); ++row)
            (rows.contains(row) ? moved : row < destination ? before : behind) << jobs[row];
        jobs = before + moved + behind;
    }

    void clearCompleted()
    {
        jobs.removeIf([](const Job &job) { return job.state.is(completed); });
    }

    void start()
    {
        if (isConverting)
            return;
        m_ids.clear();
        for (const Job &job : std::as_const(jobs)) {
            if (!job.state.is(completed))
                m_ids << job.id;
        }
        if (m_ids.isEmpty()) {
            alertMessage = QStringLiteral("Add or re-queue at least one video first.");
            return;
        }
        isConverting = true;
        m_isCancelled = false;
        convertNext();
    }

    void cancel()
    {
        if (!isConverting)
            return;
        m_isCancelled = true;
        if (m_isStalled)
            return finish(JobState::cancelled());
        switch (plans[conversions - 1].atInterrupt) {
        case ConversionPlan::AtInterrupt::dies:
            return finish(JobState::cancelled());
        case ConversionPlan::AtInterrupt::ignoresIt:
            return;
        case ConversionPlan::AtInterrupt::fails:
            return finish(JobState::failed(QStringLiteral("FFmpeg could not convert this file.")));
        case ConversionPlan::AtInterrupt::succeeds:
            return finish(JobState::completed());
        }
    }

    /// The conversion that was to begin has failed.
    void failBeginning(const QString &message)
    {
        if (Job *job = find(m_convertingId))
            job->progress = 0.0;
        finish(JobState::failed(message));
    }

    bool isStalled() const { return m_isStalled; }

    /// Lets the conversion that runs come to its end, or begin if it stands still.
    void endConversion()
    {
        if (m_isStalled) {
            m_isStalled = false;
            if (Job *job = find(m_convertingId))
                job->progress = plans[conversions - 1].progress;
            return;
        }
        switch (plans[conversions - 1].atEnd) {
        case ConversionPlan::AtEnd::succeeds:
            return finish(JobState::completed());
        case ConversionPlan::AtEnd::fails:
            return finish(JobState::failed(QStringLiteral("no")));
        case ConversionPlan::AtEnd::crashes:
            return finish(JobState::cancelled());
        }
    }

    /// The job that is being converted, if it is still in the list.
    const Job *convertingJob() { return find(m_convertingId); }

    qsizetype completedCount() const
    {
        return std::ranges::count_if(jobs, [](const Job &job) { return job.state.is(completed); });
    }

    double overallProgress() const
    {
        double sum = 0.0;
        for (const Job &job : jobs)
            sum += job.state.is(completed) ? 1.0 : job.progress;
        return jobs.isEmpty() ? 0.0 : sum / static_cast<double>(jobs.size());
    }

private:
    static bool isVideo(const QString &path) { return path.endsWith(QStringLiteral(".mkv")); }

    static qsizetype videoCount(const Search &search)
    {
        qsizetype count = 0;
        for (const QStringList &paths : search.additions)
            count += std::ranges::count_if(paths, isVideo);
        return count;
    }

    QList<Search> goingOn() const
    {
        return searches.first(std::min<qsizetype>(4, searches.size()));
    }

    void handOver(const Search &search)
    {
        for (const QStringList &paths : search.additions)
            add(paths);
        additionsFound += search.additions.size();
        m_foundBefore += videoCount(search);
    }

    Job *find(const QUuid &id)
    {
        const auto job = std::ranges::find(jobs, id, &Job::id);
        return job == jobs.end() ? nullptr : &*job;
    }

    void finish(const JobState &state)
    {
        if (Job *job = find(m_convertingId)) {
            job->state = state;
            if (state.is(completed))
                job->progress = 1.0;
        }
        m_convertingId = {};
        m_isStalled = false;
        if (state.is(cancelled))
            m_isCancelled = true;
        convertNext();
    }

    void convertNext()
    {
        while (!m_isCancelled && !m_ids.isEmpty()) {
            const QUuid id = m_ids.takeFirst();
            if (Job *job = find(id)) {
                m_convertingId = id;
                job->state = JobState::converting();
                const ConversionPlan &plan = plans[conversions++];
                m_isStalled = plan.stalls();
                job->progress = m_isStalled ? 0.0 : plan.progress;
                return;
            }
        }
        isConverting = false;
    }

    qsizetype m_foundBefore = 0; // by what has been handed over
    bool m_isCancelled = false;
    bool m_isStalled = false; // the conversion, before it has begun
    QList<QUuid> m_ids;       // that the batch has yet to convert
    QUuid m_convertingId;
};

} // namespace quorvale::test
