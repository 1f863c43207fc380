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
    /// What there is to be said of the outcome: the whole message of a job that failed, the remark
    /// on one that is completed; empty when there is nothing.
    Q_PROPERTY(QString message READ message CONSTANT)
    /// The message from where it says why.
    Q_PROPERTY(QString mainMessage READ mainMessage CONSTANT)
    Q_PROPERTY(QString legibleMainMessage READ legibleMainMessage CONSTANT)

public:
    /// Of no job.
    ShownJob() = default;
    /// `remark` is what is to be said of it when it is completed.
    explicit ShownJob(const ConversionJob &job, const QString &remark = {})
        : m_id(job.id()), m_path(job.sourceFile().path()), m_state(job.state), m_remark(remark)
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
    QString message() const { return hasFailed() ? m_state.message() : m_remark; }
    QString mainMessage() const;
    QString legibleMainMessage() const { return legibleLines(mainMessage()); }

    friend bool operator==(const ShownJob &, const ShownJob &) = default;

private:
    QUuid m_id;
    QByteArray m_path;
    JobState m_state = JobState::waiting();
    QString m_remark;
};

} // namespace quorvale
