// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "controller/converterviewmodel.h"

#include <QDir>
#include <QTemporaryDir>

#include <memory>

namespace quorvale::test {

class RecordedPanel;

/// A controller with the machine's own ffmpeg, an empty folder for sources and an empty one that is
/// chosen as its output folder.
class ConversionBench
{
public:
    ConversionBench();

    /// Ends a conversion that a failed test has left running.
    ~ConversionBench();

    ConversionBench(const ConversionBench &) = delete;
    ConversionBench &operator=(const ConversionBench &) = delete;

    ConverterViewModel &controller() const { return *m_controller; }
    QDir sources() const { return QDir(m_folder.filePath(QStringLiteral("sources"))); }
    QDir outputs() const { return QDir(m_folder.filePath(QStringLiteral("outputs"))); }

    /// Drops the file or folder at `path`; whether it has added `count` jobs before long.
    [[nodiscard]] bool drop(const QString &path, qsizetype count);

    /// Chooses another output folder.
    void choose(const QUrl &folder);

    /// Starts a batch; whether it has begun and ended before long.
    [[nodiscard]] bool runBatch();

    /// Waits for the end of the batch that runs; false when nothing changes for long.
    [[nodiscard]] bool awaitEnd();

    /// The state of the first job for a source called `name`. Ends the test program when there is
    /// none.
    JobState stateOf(const QString &name) const;

private:
    QTemporaryDir m_folder;
    RecordedPanel *m_panel;
    std::shared_ptr<ConverterViewModel> m_controller;
};

/// Whether the job was completed; if not, for the test log, what became of it instead.
[[nodiscard]] bool isCompleted(const JobState &state);

} // namespace quorvale::test
