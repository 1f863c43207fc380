// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "converterviewmodel.h"
#include "model/filename.h"
#include "outputurl.h"
#include "service/ffmpegerror.h"

#include <QCoreApplication>
#include <QCoroFuture>

#include <atomic>

using namespace Qt::StringLiterals;

// The part of the controller that turns the queue into output files.

namespace quorvale {

void ConverterViewModel::start()
{
    if (m_isConverting)
        return;
    if (unfinishedJobs().isEmpty())
        return setAlertMessage(u"Add or re-queue at least one video first."_s);
    if (!m_destination)
        return setAlertMessage(u"Choose an output folder first."_s);
    if (!FFmpegService::locateBinary(u"ffmpeg"_s))
        return setAlertMessage(FFmpegError::notFound().errorDescription());

    setConverting(true);
    m_conversionTask = std::make_shared<BatchTask>();
    // The batch begins on its own, when the caller is done; until it ends it holds the controller.
    const auto begin = [self = shared_from_this(), task = m_conversionTask, settings = m_settings,
                        destination = *m_destination] {
        self->runBatch(task, settings, destination);
    };
    QMetaObject::invokeMethod(this, begin, Qt::QueuedConnection);
}

void ConverterViewModel::cancel()
{
    if (m_conversionTask)
        m_conversionTask->isCancelled = true;
    m_service.cancel();
}

QCoro::Task<> ConverterViewModel::runBatch(std::shared_ptr<BatchTask> task,
                                           ConversionSettings settings, QUrl destination)
{
    const auto self = shared_from_this();
    const QList<QUuid> ids = unfinishedJobs();
    for (const QUuid &id : ids) {
        if (task->isCancelled)
            break;
        const ConversionJob *job = m_jobs.find(id);
        if (!job)
            continue;
        const QUrl source = job->source();
        setState(id, JobState::converting());
        setProgress(id, 0.0);
        const QUrl output = outputUrl(source, destination, settings);
        try {
            co_await m_service.convert(source, output, settings, progressHandler(id));
            setState(id, JobState::completed());
            setProgress(id, 1.0);
        } catch (const FFmpegError &error) {
            if (error.kind() == FFmpegError::Case::cancelled) {
                setState(id, JobState::cancelled());
                break;
            }
            setState(id, JobState::failed(error.errorDescription()));
        } catch (const std::exception &error) {
            setState(id, JobState::failed(QString::fromUtf8(error.what())));
        }
    }
    setConverting(false);
}

QList<QUuid> ConverterViewModel::unfinishedJobs() const
{
    QList<QUuid> ids;
    for (const ConversionJob &job : jobs()) {
        if (!job.state.is(JobState::Case::completed))
            ids << job.id();
    }
    return ids;
}

FFmpegService::ProgressHandler ConverterViewModel::progressHandler(const QUuid &id)
{
    // ffmpeg reports twice a second. What a tool that has gone wild reports beyond this many
    // values, before the main thread has come to them, is dropped rather than kept.
    constexpr int mostUndelivered = 100'000;
    const auto undelivered = std::make_shared<std::atomic<int>>(0);
    // The value is posted to the application, which outlives the controller that it is meant for.
    return [weak = weak_from_this(), id, undelivered](double progress) {
        if (*undelivered >= mostUndelivered)
            return;
        ++*undelivered;
        const auto deliver = [weak, id, undelivered, progress] {
            --*undelivered;
            if (const auto controller = weak.lock())
                controller->setProgress(id, progress);
        };
        QMetaObject::invokeMethod(qApp, deliver, Qt::QueuedConnection);
    };
}

} // namespace quorvale
