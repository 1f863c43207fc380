// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "jobstate.h"
#include "sourcefile.h"

#include <QUuid>

namespace quorvale {

/// One source file in the queue, its progress and its outcome. A plain value: a job in a list is
/// changed by changing the list's copy.
class ConversionJob
{
public:
    /// A waiting job for `source` with a fresh random id.
    explicit ConversionJob(const SourceFile &source);

    /// The job's identity: two jobs for the same file are two jobs.
    const QUuid &id() const { return m_id; }

    /// The file to convert, as a file URL.
    QUrl source() const { return m_source.url(); }

    /// The same with its path, which costs less than the URL.
    const SourceFile &sourceFile() const { return m_source; }

private:
    // Declared first so that equality looks at the fields in their order.
    QUuid m_id;
    SourceFile m_source;

public:
    /// Fraction done, normally 0 to 1, stored as the encoder reports it.
    double progress = 0.0;
    JobState state = JobState::waiting();

    friend bool operator==(const ConversionJob &, const ConversionJob &) = default;
};

/// Whether the job's video is whole.
inline bool isCompleted(const ConversionJob &job)
{
    return job.state.is(JobState::Case::completed);
}

/// Whether it could not be converted.
inline bool hasFailed(const ConversionJob &job)
{
    return job.state.is(JobState::Case::failed);
}

} // namespace quorvale
