// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "batch.h"

#include "batchreport.h"
#include "joblistmodel.h"
#include "outputurl.h"
#include "service/ffmpegerror.h"
#include "shownjob.h"

#include <QCoreApplication>
#include <QCoroFuture>

#include <atomic>

namespace quorvale {

Batch::Batch(JobListModel &jobs, FFmpegService &service, BatchReport &report,
             const ConversionSettings &settings, const QUrl &destination)
    : m_jobs(jobs), m_service(service), m_report(report), m_settings(settings),
      m_destination(destination)
{
}

QCoro::Task<> Batch::run()
{
    const QList<QUuid> ids = m_jobs.unfinished();
    if (ids.isEmpty()) // they have been removed since the start
        co_return;
    m_report.begin(ids.size());
    for (const QUuid &id : ids) {
        if (m_isCancelled)
            break;
        const ConversionJob *job = m_jobs.find(id);
        if (!job)
            continue;
        const QUrl source = job->source();
        m_jobs.setState(id, JobState::converting());
        m_jobs.setProgress(id, 0.0);
        // The service asks for it on a thread of its own, which may outlive the batch.
        const FFmpegService::DestinationChooser chooser =
            [source, destination = m_destination,
             settings = m_settings](const std::stop_token &givenUp) {
                return outputUrl(source, destination, settings, givenUp);
            };
        try {
            const ConvertedFile file =
                co_await m_service.convert(source, chooser, m_settings, progressHandler(id));
            complete(id, file);
        } catch (const FFmpegError &error) {
            if (error.kind() == FFmpegError::Case::cancelled) {
                m_jobs.setState(id, JobState::cancelled());
                break;
            }
            fail(id, error.errorDescription());
        } catch (const std::exception &error) {
            fail(id, QString::fromUtf8(error.what()));
        }
    }
    m_report.end(m_isCancelled);
}

void Batch::complete(const QUuid &id, const ConvertedFile &file)
{
    if (!m_jobs.find(id))
        return;
    m_jobs.complete(id, file);
    m_jobs.setProgress(id, 1.0);
    m_report.complete();
}

void Batch::fail(const QUuid &id, const QString &message)
{
    m_jobs.setState(id, JobState::failed(message));
    if (const ConversionJob *job = m_jobs.find(id))
        m_report.fail(ShownJob(*job));
}

void Batch::cancel()
{
    m_isCancelled = true;
    m_service.cancel();
}

FFmpegService::ProgressHandler Batch::progressHandler(const QUuid &id)
{
    // ffmpeg reports twice a second. What a tool that has gone wild reports beyond this many
    // values, before the main thread has come to them, is dropped rather than kept.
    constexpr int mostUndelivered = 100'000;
    const auto undelivered = std::make_shared<std::atomic<int>>(0);
    // The value is posted to the application, which outlives the batch.
    return [weak = weak_from_this(), id, undelivered](double progress) {
        if (*undelivered >= mostUndelivered)
            return;
        ++*undelivered;
        const auto deliver = [weak, id, undelivered, progress] {
            --*undelivered;
            if (const auto batch = weak.lock())
                batch->m_jobs.setProgress(id, progress);
        };
        QMetaObject::invokeMethod(qApp, deliver, Qt::QueuedConnection);
    };
}

} // namespace quorvale
