// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "model/conversionjob.h"
#include "queuedfiles.h"
#include "service/convertedfile.h"

#include <QAbstractListModel>
#include <QHash>
#include <QList>
#include <QUrl>

#include <functional>
#include <optional>
#include <span>

namespace quorvale {

/// The ordered list of jobs, shown to views row by row: a change of one job touches its row only,
/// and the list is reset only when very many separate rows go at once. Main thread only.
///
/// Jobs are named by their id; an operation on an id that is not in the list does nothing.
class JobListModel : public QAbstractListModel
{
    Q_OBJECT

public:
    enum Role {
        JobRole = Qt::UserRole, ///< ShownJob
        ProgressRole,           ///< fraction done, as the encoder reports it
    };

    using QAbstractListModel::QAbstractListModel;

    const QList<ConversionJob> &jobs() const { return m_jobs; }

    /// The row of the job with the id, if it is in the list.
    std::optional<qsizetype> rowOf(const QUuid &id) const;

    /// The same for views; -1 when it is not in the list.
    Q_INVOKABLE int indexOf(const QUuid &id) const
    {
        return static_cast<int>(rowOf(id).value_or(-1));
    }

    /// The job with the id, or null. Valid until the next change of the list.
    const ConversionJob *find(const QUuid &id) const;

    /// How many jobs are completed. Costs nothing.
    int completedCount() const { return m_completedCount; }

    /// How many jobs have failed. Costs nothing.
    int failedCount() const { return m_failedCount; }

    /// The first row at or below `row` whose job has failed or, where there is none, the first of
    /// all; -1 when no job has failed.
    Q_INVOKABLE int failedRow(int row) const;

    /// The jobs that are not completed, in the list's order.
    QList<QUuid> unfinished() const;

    /// Whether one of them is for `file`. Costs one look-up.
    bool isQueued(const SourceFile &file) const { return m_queuedFiles.contains(file); }

    /// Adds the jobs, whose ids are new to the list, behind the others.
    void append(QList<ConversionJob> jobs);

    /// Removes every job for which `isUnwanted` is true, keeping the order of the others. Views see
    /// one removal for each run of neighbouring rows, or a reset when there are very many.
    void removeIf(const std::function<bool(const ConversionJob &)> &isUnwanted);

    /// Removes the job, whatever its state.
    void remove(const QUuid &id);

    /// Moves the job at row `from` so that it ends up at row `to`; both are rows of the list.
    void move(qsizetype from, qsizetype to);

    /// Moves the jobs at `rows`, rows of the list in ascending order without doubles, to before the
    /// job at `destination`, both counted before the move; to the end for the number of jobs. Views
    /// see one move for each run of neighbouring rows, and changed() is said once.
    void move(const QList<int> &rows, qsizetype destination);

    /// Says where the job stands from now on.
    void setState(const QUuid &id, const JobState &state);

    /// The job is completed from now on, and this is what has become of it.
    void complete(const QUuid &id, const ConvertedFile &file);

    /// The file that a completed job has become, until it is another state's or removed; none where
    /// that was not said.
    std::optional<QUrl> output(const QUuid &id) const;

    /// Sets the fraction done, normally 0 to 1, which is stored as it comes.
    void setProgress(const QUuid &id, double progress);

    int rowCount(const QModelIndex &parent = {}) const override;
    /// For Qt::DisplayRole the file name as it is shown.
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    /// The job is being converted from now on.
    void begun(const QUuid &id);

    /// After every change of the list or of one of its jobs.
    void changed();

private:
    void count(std::span<const ConversionJob> jobs);
    void discount(std::span<const ConversionJob> jobs);
    void removeRunsIf(const std::function<bool(const ConversionJob &)> &isUnwanted);
    void removeRun(qsizetype first, qsizetype count);
    bool moveRun(qsizetype first, qsizetype count, qsizetype destination);
    void forgetRows();
    void change(qsizetype row, const JobState &state);
    void announce(qsizetype row, Role role);

    // What a completed job has become.
    struct Output
    {
        QByteArray path;
        QString remark; // for the user, or empty
    };

    QList<ConversionJob> m_jobs;
    int m_completedCount = 0;
    int m_failedCount = 0;
    QueuedFiles m_queuedFiles; // of the jobs that are not completed
    QHash<QUuid, Output> m_outputs;

    // Where each of the first so many jobs stands; completed at a look-up.
    mutable QHash<QUuid, qsizetype> m_rows;
    mutable qsizetype m_knownRows = 0;
};

} // namespace quorvale
