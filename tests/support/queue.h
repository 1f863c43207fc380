// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "controller/converterviewmodel.h"
#include "support/filetree.h"
#include "support/patience.h"
#include "support/recordedfilemanager.h"
#include "support/recordedpanel.h"
#include "support/standintools.h"

#include <QDir>

#include <optional>

namespace quorvale::test {

/// The tools that the code under test finds.
enum class Tools { standIn, machine };

/// A controller with stand-in tools or the machine's own, an empty folder for sources, and an empty
/// one that is already chosen as its output folder.
class Queue
{
public:
    explicit Queue(Tools tools = Tools::standIn);

    /// Ends a batch that a failed test has left running.
    ~Queue();

    Queue(const Queue &) = delete;
    Queue &operator=(const Queue &) = delete;

    ConverterViewModel &model() const { return *m_model; }
    std::shared_ptr<ConverterViewModel> takeModel() { return std::move(m_model); }
    RecordedPanel &panel() { return *m_panel; }
    const RecordedFileManager &fileManager() const { return *m_fileManager; }

    QDir sources() const { return QDir(m_folder.path(QStringLiteral("sources"))); }
    QDir outputs() const { return QDir(m_folder.path(QStringLiteral("outputs"))); }
    QString outputPath(const QString &name) const { return outputs().path() + u'/' + name; }

    /// Chooses another output folder, or none.
    void choose(const std::optional<QUrl> &destination);

    /// Queues waiting jobs for sources of these names, which need not be there, each in a call of
    /// its own so that they stand in the given order.
    void add(const QStringList &names);

    /// Drops the file or folder at `path`; whether it has added `count` jobs before long.
    [[nodiscard]] bool drop(const QString &path, qsizetype count);

    const ConversionJob &job(qsizetype row) const { return m_model->jobs()[row]; }
    QUuid id(qsizetype row) const { return job(row).id(); }
    JobState::Case state(qsizetype row) const { return job(row).state.kind(); }

    /// Starts a batch; whether it has begun and ended before long.
    [[nodiscard]] bool runBatch();

    /// Waits for the end of the batch that runs; false when nothing changes for long.
    [[nodiscard]] bool awaitEnd();

    // With stand-in tools only

    StandInTools &tools() { return *m_tools; }

    /// What ffmpeg does in its run `number`, counted from 1.
    void setConversion(int number, const Script &script)
    {
        m_tools->setScript(QStringLiteral("ffmpeg"), number, script);
    }

    /// What ffmpeg does in every other run.
    void setConversions(const Script &script)
    {
        m_tools->setScript(QStringLiteral("ffmpeg"), script);
    }

private:
    std::optional<StandInTools> m_tools;
    FileTree m_folder;
    RecordedPanel *m_panel;
    RecordedFileManager *m_fileManager;
    std::shared_ptr<ConverterViewModel> m_model;
};

/// Whether the job was completed; if not, for the test log, what became of it instead.
[[nodiscard]] bool isConverted(const ConversionJob &job);

} // namespace quorvale::test
