// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "controller/converterviewmodel.h"
#include "support/filetree.h"
#include "support/patience.h"
#include "support/recordedfilemanager.h"
#include "support/recordedpanel.h"
#include "support/standintools.h"

namespace quorvale::test {

/// A controller with its own stand-in tools and an output folder that is already chosen.
class Queue
{
public:
    Queue();

    ConverterViewModel &model() { return *m_model; }
    std::shared_ptr<ConverterViewModel> takeModel() { return std::move(m_model); }
    StandInTools &tools() { return m_tools; }
    RecordedPanel &panel() { return *m_panel; }
    const RecordedFileManager &fileManager() const { return *m_fileManager; }

    /// Queues waiting jobs for sources of these names, each in a call of its own so that they stand
    /// in the given order.
    void add(const QStringList &names);

    const ConversionJob &job(qsizetype row) const { return m_model->jobs()[row]; }
    QUuid id(qsizetype row) const { return job(row).id(); }

    /// The job's state as a case.
    JobState::Case state(qsizetype row) const { return job(row).state.kind(); }

    void choose(const std::optional<QUrl> &destination);
    QString outputPath(const QString &name) const { return m_output.path(name); }

    /// What ffmpeg does in its run `number`, counted from 1.
    void setConversion(int number, const Script &script)
    {
        m_tools.setScript(QStringLiteral("ffmpeg"), number, script);
    }

    /// What ffmpeg does in every other run.
    void setConversions(const Script &script)
    {
        m_tools.setScript(QStringLiteral("ffmpeg"), script);
    }

    /// Appends to `script`: say that the tool runs, then wait for release().
    Script untilReleased(Script script) const;
    bool isToolWaiting() const;
    void release() const;

private:
    StandInTools m_tools;
    FileTree m_output;
    RecordedPanel *m_panel;
    RecordedFileManager *m_fileManager;
    std::shared_ptr<ConverterViewModel> m_model;
};

/// Converts and waits for the batch's end. False when it does not end in time.
bool runBatch(ConverterViewModel &model, int milliseconds = patience);

} // namespace quorvale::test
