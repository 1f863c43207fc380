// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "joblistmodel.h"

#include "model/filename.h"

using namespace Qt::StringLiterals;

namespace quorvale {

namespace {

QString stateWord(const JobState &state)
{
    switch (state.kind()) {
    case JobState::Case::waiting:
        return u"Ready"_s;
    case JobState::Case::converting:
        return u"Converting"_s;
    case JobState::Case::completed:
        return u"Complete"_s;
    case JobState::Case::failed:
        return u"Failed"_s;
    case JobState::Case::cancelled:
        return u"Cancelled"_s;
    }
    Q_UNREACHABLE();
}

} // namespace

std::optional<qsizetype> JobListModel::rowOf(const QUuid &id) const
{
    if (!m_knowsRows) {
        m_rows.clear();
        for (qsizetype row = 0; row < m_jobs.size(); ++row)
            m_rows.insert(m_jobs[row].id(), row);
        m_knowsRows = true;
    }
    const auto row = m_rows.constFind(id);
    return row == m_rows.constEnd() ? std::nullopt : std::optional(row.value());
}

const ConversionJob *JobListModel::find(const QUuid &id) const
{
    const auto row = rowOf(id);
    return row ? &m_jobs[*row] : nullptr;
}

void JobListModel::append(const QList<ConversionJob> &jobs)
{
    if (jobs.isEmpty()) {
        Q_EMIT changed();
        return;
    }
    const qsizetype first = m_jobs.size();
    beginInsertRows({}, static_cast<int>(first), static_cast<int>(first + jobs.size() - 1));
    m_jobs += jobs;
    if (m_knowsRows) {
        for (qsizetype row = first; row < m_jobs.size(); ++row)
            m_rows.insert(m_jobs[row].id(), row);
    }
    endInsertRows();
    Q_EMIT changed();
}

void JobListModel::removeIf(const std::function<bool(const ConversionJob &)> &isUnwanted)
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
    Q_EMIT changed();
}

void JobListModel::remove(const QUuid &id)
{
    if (const auto row = rowOf(id)) {
        removeRun(*row, 1);
        Q_EMIT changed();
    }
}

void JobListModel::removeRun(qsizetype first, qsizetype count)
{
    beginRemoveRows({}, static_cast<int>(first), static_cast<int>(first + count - 1));
    m_jobs.remove(first, count);
    forgetRows();
    endRemoveRows();
}

void JobListModel::move(qsizetype from, qsizetype to)
{
    // Qt counts the destination before the row is taken out.
    const qsizetype destination = to > from ? to + 1 : to;
    if (!beginMoveRows({}, static_cast<int>(from), static_cast<int>(from), {},
                       static_cast<int>(destination)))
        return;
    m_jobs.move(from, to);
    forgetRows();
    endMoveRows();
    Q_EMIT changed();
}

void JobListModel::setState(const QUuid &id, const JobState &state)
{
    if (const auto row = rowOf(id)) {
        m_jobs[*row].state = state;
        announce(*row, {StateWordRole, IsInProgressRole, FailureRole});
    }
}

void JobListModel::setProgress(const QUuid &id, double progress)
{
    if (const auto row = rowOf(id)) {
        m_jobs[*row].progress = progress;
        announce(*row, {ProgressRole});
    }
}

void JobListModel::announce(qsizetype row, const QList<int> &roles)
{
    const QModelIndex changedRow = index(static_cast<int>(row));
    Q_EMIT dataChanged(changedRow, changedRow, roles);
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
    case Qt::DisplayRole:
    case FileNameRole:
        return lastPathComponent(job.source().toLocalFile());
    case IdRole:
        return QVariant::fromValue(job.id());
    case FolderNameRole:
        return folderName(job.source().toLocalFile());
    case StateWordRole:
        return stateWord(job.state);
    case IsInProgressRole:
        return job.state.is(JobState::Case::converting);
    case ProgressRole:
        return job.progress;
    case FailureRole:
        return job.state.message();
    default:
        return {};
    }
}

QHash<int, QByteArray> JobListModel::roleNames() const
{
    return {
        {IdRole, "jobId"},
        {FileNameRole, "fileName"},
        {FolderNameRole, "folderName"},
        {StateWordRole, "stateWord"},
        {IsInProgressRole, "isInProgress"},
        {ProgressRole, "progress"},
        {FailureRole, "failure"},
    };
}

} // namespace quorvale
