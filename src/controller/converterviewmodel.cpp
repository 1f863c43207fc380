// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "converterviewmodel.h"

#include "localfile.h"
#include "model/checkedarithmetic.h"
#include "nameorder.h"
#include "service/ffmpegerror.h"
#include "videofinder.h"

#include <algorithm>
#include <functional>

using namespace Qt::StringLiterals;

namespace quorvale {

namespace {

template <typename Option>
QStringList labels()
{
    QStringList labels;
    for (const Option option : allCases<Option>())
        labels << rawValue(option);
    return labels;
}

// The option at `index` of its labels. A picker without a choice says -1, which is none.
template <typename Option>
std::optional<Option> optionAt(int index)
{
    constexpr auto options = allCases<Option>();
    if (index < 0 || static_cast<std::size_t>(index) >= options.size())
        return std::nullopt;
    return options[static_cast<std::size_t>(index)];
}

} // namespace

std::shared_ptr<ConverterViewModel>
ConverterViewModel::create(std::unique_ptr<OpenPanel> panel,
                           std::unique_ptr<FileManager> fileManager)
{
    return std::shared_ptr<ConverterViewModel>(
        new ConverterViewModel(std::move(panel), std::move(fileManager)));
}

ConverterViewModel::ConverterViewModel(std::unique_ptr<OpenPanel> panel,
                                       std::unique_ptr<FileManager> fileManager)
    : m_panel(std::move(panel)), m_fileManager(std::move(fileManager))
{
    connect(&m_jobs, &JobListModel::changed, this, &ConverterViewModel::jobsChanged);
    connect(&m_searches, &SearchQueue::found, this, &ConverterViewModel::append);
}

void ConverterViewModel::add(const QList<QUrl> &urls)
{
    QList<SourceFile> videos = findVideos(urls);
    sortByName(videos);
    append(videos);
}

void ConverterViewModel::append(QList<SourceFile> videos)
{
    videos.removeIf([this](const SourceFile &video) { return m_jobs.isQueued(video); });
    m_jobs.append(QList<ConversionJob>(videos.cbegin(), videos.cend()));
}

void ConverterViewModel::remove(const QUuid &id)
{
    m_jobs.remove(id);
}

void ConverterViewModel::requeue(const QUuid &id)
{
    m_jobs.setState(id, JobState::waiting());
    m_jobs.setProgress(id, 0.0);
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

void ConverterViewModel::moveJobs(const QList<int> &rows, int destination)
{
    if (m_isConverting)
        return;
    QList<int> sorted = rows;
    sorted.removeIf([this](int row) { return row < 0 || row >= jobCount(); });
    std::ranges::sort(sorted);
    const auto doubles = std::ranges::unique(sorted);
    sorted.erase(doubles.begin(), doubles.end());
    m_jobs.move(sorted, std::clamp(destination, 0, jobCount()));
}

void ConverterViewModel::clearCompleted()
{
    m_jobs.removeIf(isCompleted);
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
    QList<QList<QUrl>> additions;
    for (const QUrl &url : urls) {
        if (const auto file = localFile(url))
            additions.append({*file});
    }
    if (!additions.isEmpty())
        m_searches.search(additions);
    return true;
}

void ConverterViewModel::chooseFiles()
{
    choose({.title = u"Choose videos to convert"_s,
            .prompt = u"Add Videos"_s,
            .choice = OpenPanelRequest::Choice::videos,
            .allowsMultiple = true},
           &ConverterViewModel::search);
}

void ConverterViewModel::chooseFolder()
{
    choose({.title = u"Choose a folder of videos"_s,
            .prompt = u"Add Folder"_s,
            .choice = OpenPanelRequest::Choice::folders,
            .allowsMultiple = true},
           &ConverterViewModel::search);
}

void ConverterViewModel::chooseDestination()
{
    choose({.title = u"Choose output folder"_s,
            .prompt = u"Choose"_s,
            .choice = OpenPanelRequest::Choice::folders,
            .canCreateFolders = true},
           &ConverterViewModel::setDestination);
}

void ConverterViewModel::choose(const OpenPanelRequest &request,
                                void (ConverterViewModel::*take)(const QList<QUrl> &))
{
    // A panel's answer would have to wait for the end of the one that was opened after it.
    if (m_isPanelOpen)
        return;
    const auto self = shared_from_this(); // much may end while a panel is open
    m_isPanelOpen = true;
    const auto chosen = m_panel->run(request);
    m_isPanelOpen = false;
    if (chosen)
        std::invoke(take, *this, *chosen);
}

void ConverterViewModel::setDestination(const QList<QUrl> &chosen)
{
    m_destination = chosen.isEmpty() ? std::nullopt : localFile(chosen.first());
    Q_EMIT destinationChanged();
}

void ConverterViewModel::revealDestination()
{
    if (m_destination)
        m_fileManager->reveal(*m_destination);
}

void ConverterViewModel::revealSource(const QUuid &id)
{
    if (const ConversionJob *job = m_jobs.find(id))
        m_fileManager->reveal(job->source());
}

void ConverterViewModel::revealOutput(const QUuid &id)
{
    if (const auto output = m_jobs.output(id))
        m_fileManager->reveal(*output);
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
    return labels<OutputCodec>();
}

QStringList ConverterViewModel::goalLabels() const
{
    return labels<EncodingGoal>();
}

QStringList ConverterViewModel::audioLabels() const
{
    return labels<AudioMode>();
}

void ConverterViewModel::setGoalIndex(int index)
{
    if (const auto goal = optionAt<EncodingGoal>(index))
        change(m_settings.goal, *goal);
}

void ConverterViewModel::setAudioIndex(int index)
{
    if (const auto audio = optionAt<AudioMode>(index))
        change(m_settings.audio, *audio);
}

void ConverterViewModel::setUseHardware(bool useHardware)
{
    change(m_settings.useHardware, useHardware);
}

void ConverterViewModel::setQuality(double quality)
{
    change(m_settings.quality, quality);
}

template <typename Setting>
void ConverterViewModel::change(Setting &setting, Setting value)
{
    if (setting == value)
        return;
    setting = value;
    Q_EMIT settingsChanged();
}

void ConverterViewModel::chooseCodec(int index)
{
    if (const auto codec = optionAt<OutputCodec>(index)) {
        m_settings.chooseCodec(*codec);
        Q_EMIT settingsChanged();
    }
}

void ConverterViewModel::clearAlert()
{
    setAlertMessage(std::nullopt);
}

void ConverterViewModel::setAlertMessage(const std::optional<QString> &message)
{
    m_alertMessage = message;
    Q_EMIT alertMessageChanged();
}

void ConverterViewModel::start()
{
    if (m_isConverting)
        return;
    if (completedCount() == jobCount())
        return setAlertMessage(u"Add or re-queue at least one video first."_s);
    if (!m_destination)
        return setAlertMessage(u"Choose an output folder first."_s);
    if (!FFmpegService::locateBinary(u"ffmpeg"_s))
        return setAlertMessage(FFmpegError::notFound().errorDescription());

    setConverting(true);
    m_batch = std::make_shared<Batch>(m_jobs, m_service, m_report, m_settings, *m_destination);
    // The batch begins on its own, when the caller is done.
    const auto begin = [self = shared_from_this(), batch = m_batch] {
        self->run(batch);
    };
    QMetaObject::invokeMethod(this, begin, Qt::QueuedConnection);
}

QCoro::Task<> ConverterViewModel::run(std::shared_ptr<Batch> batch)
{
    const auto self = shared_from_this(); // until the batch has ended
    co_await batch->run();
    setConverting(false);
}

void ConverterViewModel::cancel()
{
    if (m_batch)
        m_batch->cancel();
}

void ConverterViewModel::setConverting(bool isConverting)
{
    m_isConverting = isConverting;
    Q_EMIT isConvertingChanged();
}

} // namespace quorvale
