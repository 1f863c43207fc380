// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "converterviewmodel.h"

#include "model/checkedarithmetic.h"
#include "nameorder.h"
#include "videofinder.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quorvale {

namespace {

bool isCompleted(const ConversionJob &job)
{
    return job.state.is(JobState::Case::completed);
}

} // namespace

std::shared_ptr<ConverterViewModel> ConverterViewModel::create(std::unique_ptr<OpenPanel> panel)
{
    return std::shared_ptr<ConverterViewModel>(new ConverterViewModel(std::move(panel)));
}

ConverterViewModel::ConverterViewModel(std::unique_ptr<OpenPanel> panel) : m_panel(std::move(panel))
{
    connect(&m_jobs, &JobListModel::changed, this, &ConverterViewModel::jobsChanged);
}

void ConverterViewModel::add(const QList<QUrl> &urls)
{
    QList<QUrl> fresh = findVideos(urls);
    fresh.removeIf([this](const QUrl &file) { return m_queuedFiles.contains(file); });
    sortByName(fresh);

    QList<ConversionJob> newJobs;
    newJobs.reserve(fresh.size());
    m_queuedFiles.reserve(fresh.size());
    for (const QUrl &file : std::as_const(fresh)) {
        newJobs.emplaceBack(file);
        m_queuedFiles.insert(file);
    }
    m_jobs.append(newJobs);
}

void ConverterViewModel::remove(const QUuid &id)
{
    if (const ConversionJob *job = m_jobs.find(id)) {
        if (!isCompleted(*job))
            m_queuedFiles.remove(job->source());
        m_jobs.remove(id);
    }
}

void ConverterViewModel::requeue(const QUuid &id)
{
    setState(id, JobState::waiting());
    setProgress(id, 0.0);
}

void ConverterViewModel::moveJob(const QUuid &id, qint64 offset)
{
    if (m_isConverting || jobCount() < 2)
        return;
    const auto row = m_jobs.rowOf(id);
    if (!row)
        return;
    const qint64 target = std::clamp<qint64>(checkedSum(*row, offset), 0, jobCount() - 1);
    if (target != *row)
        m_jobs.move(*row, target);
}

void ConverterViewModel::clearCompleted()
{
    m_jobs.removeIf(isCompleted);
}

int ConverterViewModel::completedCount() const
{
    return static_cast<int>(std::ranges::count_if(jobs(), isCompleted));
}

double ConverterViewModel::overallProgress() const
{
    if (jobs().isEmpty())
        return 0.0;
    double sum = 0.0;
    for (const ConversionJob &job : jobs())
        sum += isCompleted(job) ? 1.0 : job.progress;
    return sum / static_cast<double>(jobCount());
}

bool ConverterViewModel::handleDrop(const QList<QUrl> &urls)
{
    for (const QUrl &url : urls) {
        if (url.isLocalFile())
            QMetaObject::invokeMethod(
                this, [this, url] { add({url}); }, Qt::QueuedConnection);
    }
    return true;
}

void ConverterViewModel::chooseDestination()
{
    const auto chosen =
        m_panel->run({u"Choose output folder"_s, u"Choose"_s, OpenPanelRequest::Choice::folder});
    if (!chosen)
        return;
    m_destination = chosen->isEmpty() ? std::nullopt : std::optional(chosen->first());
    Q_EMIT destinationChanged();
}

void ConverterViewModel::setDropTargeted(bool isTargeted)
{
    m_isDropTargeted = isTargeted;
    Q_EMIT isDropTargetedChanged();
}

void ConverterViewModel::setSettings(const ConversionSettings &settings)
{
    m_settings = settings;
    Q_EMIT settingsChanged();
}

QStringList ConverterViewModel::codecLabels() const
{
    QStringList labels;
    for (const OutputCodec codec : allCases<OutputCodec>())
        labels << rawValue(codec);
    return labels;
}

void ConverterViewModel::chooseCodec(int index)
{
    m_settings.chooseCodec(allCases<OutputCodec>().at(static_cast<std::size_t>(index)));
    Q_EMIT settingsChanged();
}

void ConverterViewModel::clearAlert()
{
    setAlertMessage(std::nullopt);
}

void ConverterViewModel::setAlertMessage(const std::optional<QString> &message)
{
    m_alertMessage = message;
    Q_EMIT alertMessageChanged();
    if (message)
        Q_EMIT alertRaised();
}

void ConverterViewModel::setState(const QUuid &id, const JobState &state)
{
    const ConversionJob *job = m_jobs.find(id);
    if (!job)
        return;
    const bool wasCompleted = isCompleted(*job);
    const bool willBeCompleted = state.is(JobState::Case::completed);
    if (wasCompleted && !willBeCompleted)
        m_queuedFiles.insert(job->source());
    else if (!wasCompleted && willBeCompleted)
        m_queuedFiles.remove(job->source());
    m_jobs.setState(id, state);
}

void ConverterViewModel::setConverting(bool isConverting)
{
    m_isConverting = isConverting;
    Q_EMIT isConvertingChanged();
}

} // namespace quorvale
