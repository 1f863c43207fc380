// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace quorvale {

/// Where a job stands. `failed` carries a plain text that says why.
class JobState
{
public:
    enum class Case {
        waiting,    ///< queued, not yet converted; also after being queued again
        converting, ///< the encoder is running for this job
        completed,  ///< the output file was written
        failed,     ///< the conversion failed; see message()
        cancelled,  ///< the user stopped the conversion
    };

    static JobState waiting() { return JobState(Case::waiting); }
    static JobState converting() { return JobState(Case::converting); }
    static JobState completed() { return JobState(Case::completed); }
    static JobState failed(const QString &message) { return JobState(Case::failed, message); }
    static JobState cancelled() { return JobState(Case::cancelled); }

    /// The state without its message.
    Case kind() const { return m_kind; }

    /// Whether it is the state `kind`, whatever its message.
    bool is(Case kind) const { return m_kind == kind; }

    /// Why the job failed; empty in every other state.
    const QString &message() const { return m_message; }

    /// Same case and, for `failed`, canonically equivalent messages (Unicode Standard Annex 15):
    /// an é in one character equals an e followed by a combining acute accent.
    friend bool operator==(const JobState &a, const JobState &b);

private:
    explicit JobState(Case kind, const QString &message = {}) : m_kind(kind), m_message(message) {}

    Case m_kind;
    QString m_message;
};

} // namespace quorvale
