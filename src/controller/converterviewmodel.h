// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "joblistmodel.h"
#include "model/conversionsettings.h"
#include "openpanel.h"
#include "queuedfiles.h"
#include "service/ffmpegservice.h"

#include <QCoroTask>
#include <QObject>
#include <QUrl>

#include <memory>
#include <optional>

namespace quorvale {

/// The one object behind the window: the queue, the settings, the output folder and the batch that
/// converts the queue. Main thread only; no operation throws.
class ConverterViewModel : public QObject, public std::enable_shared_from_this<ConverterViewModel>
{
    Q_OBJECT
    Q_PROPERTY(quorvale::JobListModel *jobs READ jobModel CONSTANT)
    Q_PROPERTY(QUrl destination READ destinationUrl NOTIFY destinationChanged)
    Q_PROPERTY(QString destinationPath READ destinationPath NOTIFY destinationChanged)
    Q_PROPERTY(QStringList codecLabels READ codecLabels CONSTANT)
    Q_PROPERTY(int codecIndex READ codecIndex NOTIFY settingsChanged)
    Q_PROPERTY(bool isConverting READ isConverting NOTIFY isConvertingChanged)
    Q_PROPERTY(
        bool isDropTargeted READ isDropTargeted WRITE setDropTargeted NOTIFY isDropTargetedChanged)
    Q_PROPERTY(QString alertMessage READ alertText NOTIFY alertMessageChanged)
    Q_PROPERTY(int jobCount READ jobCount NOTIFY jobsChanged)
    Q_PROPERTY(int completedCount READ completedCount NOTIFY jobsChanged)
    Q_PROPERTY(double overallProgress READ overallProgress NOTIFY jobsChanged)

public:
    /// A controller with default settings and an empty queue. Shared, because a running batch keeps
    /// it alive until the batch has ended.
    static std::shared_ptr<ConverterViewModel> create(std::unique_ptr<OpenPanel> panel);

    // The queue

    /// In the order in which they are converted and shown.
    const QList<ConversionJob> &jobs() const { return m_jobs.jobs(); }
    JobListModel *jobModel() { return &m_jobs; }
    int jobCount() const { return m_jobs.rowCount(); }

    /// Queues the accepted videos among `urls`, files or folders, behind the jobs that are there,
    /// sorted by file name. A file with a job that is not completed is not queued again; everything
    /// that is not accepted is left out silently.
    void add(const QList<QUrl> &urls);

    /// Removes the job, whatever its state; what becomes of a running conversion of it is dropped.
    void remove(const QUuid &id);

    /// Makes the job wait again, from the beginning.
    void requeue(const QUuid &id);

    /// Moves the job by `offset` rows, at most to either end. Does nothing while a batch runs.
    void moveJob(const QUuid &id, qint64 offset);

    void clearCompleted();

    int completedCount() const;

    /// The fraction of the whole queue that is done: completed jobs count 1, others their progress.
    double overallProgress() const;

    // Files in, files out

    /// Queues each dropped URL by a call of add() of its own, in order, once the drop is over. Says
    /// true, whatever was dropped.
    Q_INVOKABLE bool handleDrop(const QList<QUrl> &urls);

    const std::optional<QUrl> &destination() const { return m_destination; }

    /// Lets the user choose the output folder.
    Q_INVOKABLE void chooseDestination();

    /// Written by the drop targets while a drag that they would take hovers over them.
    bool isDropTargeted() const { return m_isDropTargeted; }
    void setDropTargeted(bool isTargeted);

    // The settings

    const ConversionSettings &settings() const { return m_settings; }
    void setSettings(const ConversionSettings &settings);

    /// Chooses the codec at `index` of codecLabels, which also adapts the audio mode.
    Q_INVOKABLE void chooseCodec(int index);

    // The batch

    bool isConverting() const { return m_isConverting; }

    /// Converts every job that is not completed, in list order, one at a time, with the settings
    /// and the output folder as they are now. Does nothing while a batch runs. What prevents a
    /// start is said in alertMessage; what becomes of a job is said in its state.
    Q_INVOKABLE void start();

    /// Stops the batch: interrupts the conversion that runs and starts no further one.
    Q_INVOKABLE void cancel();

    /// The text that the window's alert shows, until it is cleared.
    const std::optional<QString> &alertMessage() const { return m_alertMessage; }
    Q_INVOKABLE void clearAlert();

Q_SIGNALS:
    void jobsChanged();
    void destinationChanged();
    void settingsChanged();
    void isConvertingChanged();
    void isDropTargetedChanged();
    void alertMessageChanged();
    /// There is a text to show, possibly the same as the last one.
    void alertRaised();

private:
    // The handle of a batch: whoever holds it can ask the batch to end.
    struct BatchTask
    {
        bool isCancelled = false;
    };

    explicit ConverterViewModel(std::unique_ptr<OpenPanel> panel);

    QUrl destinationUrl() const { return m_destination.value_or(QUrl()); }
    QString destinationPath() const { return destinationUrl().toLocalFile(); }
    QStringList codecLabels() const;
    int codecIndex() const { return static_cast<int>(m_settings.codec); }
    QString alertText() const { return m_alertMessage.value_or(QString()); }

    void setState(const QUuid &id, const JobState &state);
    void setProgress(const QUuid &id, double progress) { m_jobs.setProgress(id, progress); }
    void setConverting(bool isConverting);
    void setAlertMessage(const std::optional<QString> &message);

    QList<QUuid> unfinishedJobs() const;
    FFmpegService::ProgressHandler progressHandler(const QUuid &id);
    QCoro::Task<> runBatch(std::shared_ptr<BatchTask> task, ConversionSettings settings,
                           QUrl destination);

    JobListModel m_jobs;
    QueuedFiles m_queuedFiles; // those of the jobs that are not completed
    std::optional<QUrl> m_destination;
    ConversionSettings m_settings;
    bool m_isConverting = false;
    bool m_isDropTargeted = false;
    std::optional<QString> m_alertMessage;

    std::unique_ptr<OpenPanel> m_panel;
    FFmpegService m_service;
    std::shared_ptr<BatchTask> m_conversionTask; // of the last successful start()
};

} // namespace quorvale
