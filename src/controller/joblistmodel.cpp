// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "joblistmodel.h"

#include "model/filepath.h"
#include "shownjob.h"

#include <algorithm>
#include <utility>

namespace quorvale {

namespace {

// How many runs of neighbours there are for which `isUnwanted` is true.
qsizetype countRuns(const QList<ConversionJob> &jobs,
                    const std::function<bool(const ConversionJob &)> &isUnwanted)
{
    qsizetype runs = 0;
    bool isInRun = false;
    for (const ConversionJob &job : jobs) {
        const bool wasInRun = std::exchange(isInRun, isUnwanted(job));
        runs += isInRun && !wasInRun ? 1 : 0;
    }
    return runs;
}

} // namespace

std::optional<qsizetype> JobListModel::rowOf(const QUuid &id) const
{
    for (; m_knownRows < m_jobs.size(); ++m_knownRows)
        m_rows.insert(m_jobs[m_knownRows].id(), m_knownRows);
    const auto row = m_rows.constFind(id);
    return row == m_rows.constEnd() ? std::nullopt : std::optional(row.value());
}

const ConversionJob *JobListModel::find(const QUuid &id) const
{
    const auto row = rowOf(id);
    return row ? &m_jobs[*row] : nullptr;
}

QList<QUuid> JobListModel::unfinished() const
{
    QList<QUuid> ids;
    for (const ConversionJob &job : m_jobs) {
        if (!isCompleted(job))
            ids << job.id();
    }
    return ids;
}

int JobListModel::failedRow(int row) const
{
    if (m_failedCount == 0)
        return -1;
    const auto first = m_jobs.cbegin();
    auto failed = std::find_if(first + std::clamp<qsizetype>(row, 0, m_jobs.size()), m_jobs.cend(),
                               hasFailed);
    if (failed == m_jobs.cend())
        failed = std::ranges::find_if(m_jobs, hasFailed);
    return static_cast<int>(failed - first);
}

// Jobs that have come, or are in another state now, ...
void JobListModel::count(std::span<const ConversionJob> jobs)
{
    m_queuedFiles.reserve(static_cast<qsizetype>(jobs.size()));
    for (const ConversionJob &job : jobs) {
        m_failedCount += hasFailed(job) ? 1 : 0;
        if (isCompleted(job))
            ++m_completedCount;
        else
            m_queuedFiles.insert(job.sourceFile());
    }
}

// ... and jobs that will go, or be in another one.
void JobListModel::discount(std::span<const ConversionJob> jobs)
{
    for (const ConversionJob &job : jobs) {
        m_failedCount -= hasFailed(job) ? 1 : 0;
        if (isCompleted(job)) {
            --m_completedCount;
            m_outputs.remove(job.id());
        } else {
            m_queuedFiles.remove(job.sourceFile());
        }
    }
}

void JobListModel::append(QList<ConversionJob> jobs)
{
    if (jobs.isEmpty()) {
        Q_EMIT changed();
        return;
    }
    const qsizetype first = m_jobs.size();
    beginInsertRows({}, static_cast<int>(first), static_cast<int>(first + jobs.size() - 1));
    count(jobs);
    m_jobs += std::move(jobs);
    endInsertRows();
    Q_EMIT changed();
}

void JobListModel::removeIf(const std::function<bool(const ConversionJob &)> &isUnwanted)
{
    // Every run that goes moves all jobs behind it and is followed by the views. For very many runs
    // it is far quicker to show the list anew.
    constexpr qsizetype mostRuns = 1000;
    if (countRuns(m_jobs, isUnwanted) > mostRuns) {
        beginResetModel();
        m_jobs.removeIf([&](const ConversionJob &job) {
            const bool goes = isUnwanted(job);
            if (goes)
                discount({&job, 1});
            return goes;
        });
        forgetRows();
        endResetModel();
    } else {
        removeRunsIf(isUnwanted);
    }
    Q_EMIT changed();
}

void JobListModel::removeRunsIf(const std::function<bool(const ConversionJob &)> &isUnwanted)
{
    // From the end, run by run, so that neither rows yet to be seen nor views' rows shift early.
    qsizetype end = m_jobs.size();
    while (end > 0) {
        qsizetype first = end;
        while (first > 0 && isUnwanted(m_jobs[first - 1]))
            --first;
        if (first < end)
            removeRun(first, end - first);
        end = first - 1;
    }
}

void JobListModel::remove(const QUuid &id)
{
    if (const auto row = rowOf(id)) {
        removeRun(*row, 1);
        Q_EMIT changed();
    }
}

void JobListModel::forgetRows()
{
    m_rows.clear();
    m_knownRows = 0;
}

void JobListModel::removeRun(qsizetype first, qsizetype count)
{
    beginRemoveRows({}, static_cast<int>(first), static_cast<int>(first + count - 1));
    discount(std::span(m_jobs).subspan(static_cast<std::size_t>(first),
                                       static_cast<std::size_t>(count)));
    m_jobs.remove(first, count);
    forgetRows();
    endRemoveRows();
}

void JobListModel::move(qsizetype from, qsizetype to)
{
    // Qt counts the destination before the row is taken out.
    if (moveRun(from, 1, to > from ? to + 1 : to))
        Q_EMIT changed();
}

void JobListModel::move(const QList<int> &rows, qsizetype destination)
{
    const auto runEnd = [](auto row, auto end) {
        const auto isGap = [](int a, int b) {
            return b != a + 1;
        };
        const auto gap = std::adjacent_find(row, end, isGap);
        return gap == end ? end : std::next(gap);
    };
    // Those above go down last run first and those below come up first run first, so that no move
    // shifts a row that is still to be moved.
    const auto below = std::ranges::lower_bound(rows, destination);
    QList<std::pair<int, qsizetype>> above; // each run's first row and length
    for (auto row = rows.begin(); row != below;) {
        const auto end = runEnd(row, below);
        above.prepend({*row, end - row});
        row = end;
    }
    bool isChanged = false;
    qsizetype target = destination;
    for (const auto &[first, count] : std::as_const(above)) {
        isChanged |= moveRun(first, count, target);
        target -= count;
    }
    target = destination;
    for (auto row = below; row != rows.end();) {
        const auto end = runEnd(row, rows.end());
        isChanged |= moveRun(*row, end - row, target);
        target += end - row;
        row = end;
    }
    if (isChanged)
        Q_EMIT changed();
}

// Moves a run of rows to before the row `destination`. False when it stands there already.
bool JobListModel::moveRun(qsizetype first, qsizetype count, qsizetype destination)
{
    if (!beginMoveRows({}, static_cast<int>(first), static_cast<int>(first + count - 1), {},
                       static_cast<int>(destination)))
        return false;
    const auto jobs = m_jobs.begin();
    if (destination < first)
        std::rotate(jobs + destination, jobs + first, jobs + first + count);
    else
        std::rotate(jobs + first, jobs + first + count, jobs + destination);
    forgetRows();
    endMoveRows();
    return true;
}

void JobListModel::setState(const QUuid &id, const JobState &state)
{
    if (const auto row = rowOf(id)) {
        change(*row, state);
        announce(*row, JobRole);
        if (state.is(JobState::Case::converting))
            Q_EMIT begun(id);
    }
}

void JobListModel::complete(const QUuid &id, const ConvertedFile &file)
{
    if (const auto row = rowOf(id)) {
        change(*row, JobState::completed());
        m_outputs.insert(id,
                         {filePath(file.url), file.earlyEnd ? remark(*file.earlyEnd) : QString()});
        announce(*row, JobRole);
    }
}

void JobListModel::change(qsizetype row, const JobState &state)
{
    ConversionJob &job = m_jobs[row];
    discount({&job, 1});
    job.state = state;
    count({&job, 1});
}

std::optional<QUrl> JobListModel::output(const QUuid &id) const
{
    const auto output = m_outputs.constFind(id);
    return output == m_outputs.cend() ? std::nullopt : std::optional(fileUrl(output->path));
}

void JobListModel::setProgress(const QUuid &id, double progress)
{
    if (const auto row = rowOf(id)) {
        m_jobs[*row].progress = progress;
        announce(*row, ProgressRole);
    }
}

void JobListModel::announce(qsizetype row, Role role)
{
    const QModelIndex changedRow = index(static_cast<int>(row));
    Q_EMIT dataChanged(changedRow, changedRow, {role});
    Q_EMIT changed();
}

int JobListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_jobs.size());
}

QVariant JobListModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const ConversionJob &job = m_jobs[index.row()];
    switch (role) {
    case JobRole:
        return QVariant::fromValue(ShownJob(job, m_outputs.value(job.id()).remark));
    case ProgressRole:
        return job.progress;
    case Qt::DisplayRole:
        return ShownJob(job).legibleFileName();
    default:
        return {};
    }
}

QHash<int, QByteArray> JobListModel::roleNames() const
{
    return {{JobRole, "job"}, {ProgressRole, "progress"}};
}

} // namespace quorvale
