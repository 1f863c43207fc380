// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "model/conversionjob.h"
#include "model/legible.h"

#include <QObject>

namespace quorvale {

/// What a view shows of a job, but for its progress, which changes far more often. A plain value
/// that stays as it is when the job changes; what it says is worked out when it is asked. What is
/// read out, copied and in tooltips says exactly what a file is called; what is shown beside other
/// texts is legible(), see model/legible.h.
class ShownJob
{
    Q_GADGET
    Q_PROPERTY(QUuid id READ id CONSTANT)
    /// The source's name with its extension.
    Q_PROPERTY(QString fileName READ fileName CONSTANT)
    Q_PROPERTY(QString legibleFileName READ legibleFileName CONSTANT)
    /// The source's full local path.
    Q_PROPERTY(QString sourcePath READ sourcePath CONSTANT)
    /// The name of the folder that holds the source, "/" for the root.
    Q_PROPERTY(QString folderName READ folderName CONSTANT)
    Q_PROPERTY(QString legibleFolderName READ legibleFolderName CONSTANT)
    /// The state in a word for the user.
    Q_PROPERTY(QString stateWord READ stateWord CONSTANT)
    /// Whether the job is being converted.
    Q_PROPERTY(bool isInProgress READ isInProgress CONSTANT)
    Q_PROPERTY(bool isCompleted READ isCompleted CONSTANT)
    Q_PROPERTY(bool hasFailed READ hasFailed CONSTANT)
    /// The whole message of a job that failed; empty in every other state.
    Q_PROPERTY(QString failure READ failure CONSTANT)
    /// The message from where it says why.
    Q_PROPERTY(QString failureReason READ failureReason CONSTANT)
    Q_PROPERTY(QString legibleFailureReason READ legibleFailureReason CONSTANT)

public:
    /// Of no job.
    ShownJob() = default;
    explicit ShownJob(const ConversionJob &job)
        : m_id(job.id()), m_path(job.sourceFile().path()), m_state(job.state)
    {
    }

    QUuid id() const { return m_id; }
    QString fileName() const;
    QString legibleFileName() const { return legible(fileName()); }
    QString sourcePath() const;
    QString folderName() const;
    QString legibleFolderName() const { return legible(folderName()); }
    QString stateWord() const;
    bool isInProgress() const { return m_state.is(JobState::Case::converting); }
    bool isCompleted() const { return m_state.is(JobState::Case::completed); }
    bool hasFailed() const { return m_state.is(JobState::Case::failed); }
    QString failure() const { return m_state.message(); }
    QString failureReason() const;
    QString legibleFailureReason() const { return legibleLines(failureReason()); }

    friend bool operator==(const ShownJob &, const ShownJob &) = default;

private:
    QUuid m_id;
    QByteArray m_path;
    JobState m_state = JobState::waiting();
};

} // namespace quorvale
