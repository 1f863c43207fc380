// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "batch.h"
#include "batchreport.h"
#include "failurenotice.h"
#include "filemanager.h"
#include "joblistmodel.h"
#include "model/conversionsettings.h"
#include "model/filepath.h"
#include "model/legible.h"
#include "openpanel.h"
#include "searchqueue.h"

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
    Q_PROPERTY(quorvale::SearchQueue *searches READ searches CONSTANT)
    Q_PROPERTY(quorvale::FailureNotice *failures READ failures CONSTANT)
    Q_PROPERTY(QString destinationPath READ destinationPath NOTIFY destinationChanged)
    Q_PROPERTY(QString legibleDestinationPath READ legibleDestinationPath NOTIFY destinationChanged)
    Q_PROPERTY(bool hasDestination READ hasDestination NOTIFY destinationChanged)
    Q_PROPERTY(QStringList codecLabels READ codecLabels CONSTANT)
    Q_PROPERTY(int codecIndex READ codecIndex NOTIFY settingsChanged)
    Q_PROPERTY(bool isProRes READ isProRes NOTIFY settingsChanged)
    Q_PROPERTY(QStringList goalLabels READ goalLabels CONSTANT)
    Q_PROPERTY(int goalIndex READ goalIndex WRITE setGoalIndex NOTIFY settingsChanged)
    Q_PROPERTY(QStringList audioLabels READ audioLabels CONSTANT)
    Q_PROPERTY(int audioIndex READ audioIndex WRITE setAudioIndex NOTIFY settingsChanged)
    Q_PROPERTY(bool useHardware READ useHardware WRITE setUseHardware NOTIFY settingsChanged)
    Q_PROPERTY(double quality READ quality WRITE setQuality NOTIFY settingsChanged)
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
    static std::shared_ptr<ConverterViewModel> create(std::unique_ptr<OpenPanel> panel,
                                                      std::unique_ptr<FileManager> fileManager);

    // The queue

    /// In the order in which they are converted and shown.
    const QList<ConversionJob> &jobs() const { return m_jobs.jobs(); }

    /// The same list for views.
    JobListModel *jobModel() { return &m_jobs; }

    /// How many jobs there are, whatever their states.
    int jobCount() const { return m_jobs.rowCount(); }

    /// Queues the accepted videos among `urls`, files or folders, behind the jobs that are there,
    /// sorted by file name. A file with a job that is not completed is not queued again; everything
    /// that is not accepted is left out silently. Waits for the disks that are searched.
    void add(const QList<QUrl> &urls);

    /// The same without waiting: the videos are queued when they are found, but not before those of
    /// earlier calls and drops.
    void search(const QList<QUrl> &urls) { m_searches.search({urls}); }

    /// What is being searched, for views.
    SearchQueue *searches() { return &m_searches; }

    /// What the user is told of the jobs that have failed, for views.
    FailureNotice *failures() { return &m_failures; }

    /// Removes the job, whatever its state; what becomes of a running conversion of it is dropped.
    Q_INVOKABLE void remove(const QUuid &id);

    /// Makes the job wait again, from the beginning.
    Q_INVOKABLE void requeue(const QUuid &id);

    /// Moves the job by `offset` rows, at most to either end. Does nothing while a batch runs.
    Q_INVOKABLE void moveJob(const QUuid &id, qint64 offset);

    /// Moves the jobs at `rows`, in their present order, to before the job at `destination`, both
    /// counted before the move; to the end for the number of jobs. Does nothing while a batch runs.
    /// Rows that are not in the list are left out, `destination` is brought to the nearer end, and
    /// jobs that stand there already are no change.
    Q_INVOKABLE void moveJobs(const QList<int> &rows, int destination);

    /// Removes every completed job, and no other.
    Q_INVOKABLE void clearCompleted();

    /// How many jobs are completed.
    int completedCount() const { return m_jobs.completedCount(); }

    /// The fraction of the whole queue that is done: completed jobs count 1, others their progress.
    double overallProgress() const;

    // Files in, files out
    //
    // The operations that let the user choose return when the panel is closed and process events
    // until then; while one of them waits, all of them do nothing. An object of QML must not be
    // destroyed while one of its handlers waits for them: handlers call them by Qt.callLater().

    /// Lets the user choose videos and queues them by a search().
    Q_INVOKABLE void chooseFiles();

    /// Lets the user choose folders and queues the videos below them by a search().
    Q_INVOKABLE void chooseFolder();

    /// Queues each dropped URL by a search() of its own, in order. Says true, whatever was dropped.
    Q_INVOKABLE bool handleDrop(const QList<QUrl> &urls);

    /// The output folder, once one was chosen.
    const std::optional<QUrl> &destination() const { return m_destination; }

    /// Lets the user choose the output folder.
    Q_INVOKABLE void chooseDestination();

    /// Shows the output folder in the file manager, when one is chosen.
    Q_INVOKABLE void revealDestination();

    /// Written by the drop targets while a drag that they would take hovers over them.
    bool isDropTargeted() const { return m_isDropTargeted; }
    void setDropTargeted(bool isTargeted);

    /// Shows the job's video in the file manager.
    Q_INVOKABLE void revealSource(const QUuid &id);

    /// Shows in the file manager what a completed job has become.
    Q_INVOKABLE void revealOutput(const QUuid &id);

    // The settings

    /// What the next batch converts with.
    const ConversionSettings &settings() const { return m_settings; }

    /// Replaces all settings at once, also the one that no control of the window sets: whether
    /// outputs that exist are overwritten.
    void setSettings(const ConversionSettings &settings);

    /// Chooses the codec at `index` of codecLabels, which also adapts the audio mode.
    Q_INVOKABLE void chooseCodec(int index);

    // The batch

    /// Whether a batch runs, from its start until its last conversion has ended.
    bool isConverting() const { return m_isConverting; }

    /// Converts every job that is not completed, in list order, one at a time, with the settings
    /// and the output folder as they are now. Does nothing while a batch runs. What prevents a
    /// start is said in alertMessage; what becomes of a job is said in its state.
    Q_INVOKABLE void start();

    /// Stops the batch: interrupts the conversion that runs and starts no further one.
    Q_INVOKABLE void cancel();

    /// Says what is to be heard of each batch.
    const BatchReport &report() const { return m_report; }

    /// The text that the window's alert shows, until it is cleared.
    const std::optional<QString> &alertMessage() const { return m_alertMessage; }

    /// Takes the alert's text away, as when the user has read it.
    Q_INVOKABLE void clearAlert();

Q_SIGNALS:
    void jobsChanged();
    void destinationChanged();
    void settingsChanged();
    void isConvertingChanged();
    void isDropTargetedChanged();
    /// The text was set, possibly to what it was, or cleared.
    void alertMessageChanged();

private:
    ConverterViewModel(std::unique_ptr<OpenPanel> panel, std::unique_ptr<FileManager> fileManager);

    QString destinationPath() const { return shownPath(filePath(m_destination.value_or(QUrl()))); }
    QString legibleDestinationPath() const { return legible(destinationPath()); }
    bool hasDestination() const { return m_destination.has_value(); }

    // The settings as QML binds to them: an option is its index among the labels. An index without
    // a label, and a value that is stored already, change nothing.
    QStringList codecLabels() const;
    int codecIndex() const { return static_cast<int>(m_settings.codec); }
    bool isProRes() const { return quorvale::isProRes(m_settings.codec); }
    QStringList goalLabels() const;
    int goalIndex() const { return static_cast<int>(m_settings.goal); }
    void setGoalIndex(int index);
    QStringList audioLabels() const;
    int audioIndex() const { return static_cast<int>(m_settings.audio); }
    void setAudioIndex(int index);
    bool useHardware() const { return m_settings.useHardware; }
    void setUseHardware(bool useHardware);
    double quality() const { return m_settings.quality; }
    void setQuality(double quality);
    template <typename Setting>
    void change(Setting &setting, Setting value);
    QString alertText() const { return m_alertMessage.value_or(QString()); }

    void append(QList<SourceFile> videos);

    // Has the user choose in a panel and hands what was chosen to `take`.
    void choose(const OpenPanelRequest &request,
                void (ConverterViewModel::*take)(const QList<QUrl> &));
    void setDestination(const QList<QUrl> &chosen);
    void setConverting(bool isConverting);
    void setAlertMessage(const std::optional<QString> &message);

    QCoro::Task<> run(std::shared_ptr<Batch> batch);

    JobListModel m_jobs;
    SearchQueue m_searches;
    FailureNotice m_failures{m_jobs};
    std::optional<QUrl> m_destination;
    ConversionSettings m_settings;
    bool m_isConverting = false;
    bool m_isDropTargeted = false;
    std::optional<QString> m_alertMessage;

    std::unique_ptr<OpenPanel> m_panel;
    bool m_isPanelOpen = false;
    std::unique_ptr<FileManager> m_fileManager;
    FFmpegService m_service;
    BatchReport m_report;
    std::shared_ptr<Batch> m_batch; // of the last successful start()
};

} // namespace quorvale
