// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "model/conversionsettings.h"
#include "service/ffmpegservice.h"

#include <QCoroTask>
#include <QUrl>
#include <QUuid>

#include <memory>

namespace quorvale {

class BatchReport;
class JobListModel;

/// One batch: converts every job of a list that is not completed, one after another, and writes
/// into the list what becomes of each. The list may be edited meanwhile. Main thread only.
class Batch : public std::enable_shared_from_this<Batch>
{
public:
    /// Of these jobs, which like the service and the report have to outlive the run of the batch,
    /// with these settings into the folder `destination`.
    Batch(JobListModel &jobs, FFmpegService &service, BatchReport &report,
          const ConversionSettings &settings, const QUrl &destination);

    /// Converts, from the first job that is not completed now, until the last has ended or the
    /// batch was cancelled. What becomes of a job is said in its state, and by the report unless it
    /// has been removed meanwhile; nothing is thrown. The batch has to be kept until the task is
    /// done, by a shared pointer. To be called once.
    QCoro::Task<> run();

    /// Interrupts the conversion that runs and starts no further one. Before the run, it lets the
    /// run end at once; after it, nothing happens.
    void cancel();

private:
    void complete(const QUuid &id, const ConvertedFile &file);
    void fail(const QUuid &id, const QString &message);
    FFmpegService::ProgressHandler progressHandler(const QUuid &id);

    JobListModel &m_jobs;
    FFmpegService &m_service;
    BatchReport &m_report;
    const ConversionSettings m_settings;
    const QUrl m_destination;
    bool m_isCancelled = false;
};

} // namespace quorvale
