// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QString>

namespace quorvale {

class ShownJob;

/// Says of a batch, in a sentence each, what a user is to hear who does not see the window: that it
/// begins, each failure, and what has become of it. What it counts is what the batch has done, also
/// of jobs that have been removed or queued again since. Main thread only.
class BatchReport : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// A batch of so many videos, at least one, begins.
    void begin(qsizetype videos);

    /// One of them is complete.
    void complete() { ++m_completed; }

    /// This one of them has failed.
    void fail(const ShownJob &job);

    /// The batch has ended, by itself or because the user has cancelled it; a cancel that came when
    /// all were complete was none.
    void end(bool isCancelled);

Q_SIGNALS:
    /// A sentence for the user.
    void said(const QString &sentence);

private:
    qsizetype m_videos = 0;
    qsizetype m_completed = 0;
    qsizetype m_failed = 0;
};

} // namespace quorvale
