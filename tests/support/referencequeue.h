// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "model/jobstate.h"

#include <QList>
#include <QSet>
#include <QString>
#include <QUuid>

#include <optional>

namespace quorvale::test {

/// How one conversion goes.
struct ConversionPlan
{
    enum class AtInterrupt { dies, ignoresIt, fails, succeeds };
    enum class AtEnd { succeeds, fails, crashes };

    double progress = 0.0; ///< the fraction that it reports before it waits for its end
    AtInterrupt atInterrupt = AtInterrupt::dies;
    AtEnd atEnd = AtEnd::succeeds;
};

/// The queue and its batch as they are meant to be, as plainly as can be: the other side of a
/// comparison with the real ones. A conversion stands still until it is told to end.
class ReferenceQueue
{
public:
    struct Job
    {
        QString source; ///< a path
        QUuid id;       ///< as the real queue has chosen it
        double progress = 0.0;
        JobState state = JobState::waiting();
    };

    QList<Job> jobs;
    std::optional<QString> alertMessage;

    /// Names are compared character by character here, so they have to be of lower-case letters.
    void add(const QStringList &paths);
    void remove(const QUuid &id);
    void requeue(const QUuid &id);
    void move(const QUuid &id, qsizetype offset);
    void move(const QList<int> &rows, qsizetype destination);
    void clearCompleted();

    void start();
    void cancel();

    /// Lets the conversion that runs come to its end.
    void endConversion();

    bool isConverting() const { return m_isConverting; }

    /// How many conversions have been started so far. Their plans are taken from `plans` in turn.
    qsizetype conversions() const { return m_conversions; }
    QList<ConversionPlan> plans;

    /// The job that is being converted, if it is still in the list.
    const Job *convertingJob() const { return find(m_convertingId); }

    qsizetype completedCount() const;
    double overallProgress() const;

private:
    const Job *find(const QUuid &id) const;
    Job *find(const QUuid &id);
    qsizetype rowOf(const QUuid &id) const;
    void finish(const JobState &state);
    void convertNext();

    bool m_isConverting = false;
    bool m_isCancelled = false;
    QList<QUuid> m_ids; // that the batch has yet to convert
    QUuid m_convertingId;
    qsizetype m_conversions = 0;
};

} // namespace quorvale::test
