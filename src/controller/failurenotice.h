// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QString>

namespace quorvale {

class JobListModel;

/// What the user is told of the jobs of a list that have failed: how many there are now, until the
/// user has read it, and again when one more fails. Main thread.
class FailureNotice : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString text READ text NOTIFY changed)

public:
    /// For this list, which has to outlive it.
    explicit FailureNotice(const JobListModel &jobs);

    /// In a few words; empty when there is nothing to be told.
    QString text() const;

    /// The user has read it.
    Q_INVOKABLE void dismiss();

Q_SIGNALS:
    void changed();

private:
    void follow();

    const JobListModel &m_jobs;
    int m_failedCount = 0; // as told last
    int m_jobCount = 0;
    int m_readCount = 0; // of the failed ones, of which the user has read
};

} // namespace quorvale
