// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "activeprocess.h"
#include "convertedfile.h"
#include "diskthread.h"
#include "mediainfo.h"
#include "model/conversionsettings.h"
#include "worker.h"

#include <QFuture>
#include <QSet>
#include <QString>
#include <QUrl>

#include <chrono>
#include <functional>
#include <optional>
#include <stop_token>

namespace quorvale {

/// How long after a cancel what was asked before it may take to answer.
struct CancelPatience
{
    std::chrono::milliseconds disk{250};
    /// A tool that reads from a disk, and is not interrupted.
    std::chrono::milliseconds probe{5000};
};

/// Drives the user's own ffmpeg and ffprobe: finds them, probes a source and converts it.
class FFmpegService
{
public:
    /// Says where an output goes, on a thread that may wait for a disk and may be left behind
    /// there; it is told when it is given up, and is then to ask the disk nothing further.
    using DestinationChooser = std::function<QUrl(const std::stop_token &givenUp)>;

    /// Receives fractions done, at most 1 and negative when ffmpeg's times are, on a worker thread.
    /// Must neither block nor throw.
    using ProgressHandler = std::function<void(double)>;

    explicit FFmpegService(const CancelPatience &patience = {});

    /// Waits for conversions that still run.
    ~FFmpegService();

    FFmpegService(const FFmpegService &) = delete;
    FFmpegService &operator=(const FFmpegService &) = delete;

    /// The first executable file called `named` in toolDirectories(), or none. Looks afresh at
    /// every call, so a tool installed meanwhile is found. Any thread.
    static std::optional<QUrl> locateBinary(const QString &named);

    /// The lower-case file extensions, without dots, that are accepted as input. Any thread.
    static const QSet<QString> &supportedExtensions();

    /// Converts the file `source` into the file `destination`, whose extension decides the
    /// container, on a worker thread. Missing folders of the destination are created. The future
    /// holds where the output is, and where the source ended when it ended early.
    ///
    /// The future throws FFmpegError::notFound when there is no ffmpeg, FFmpegError::cancelled when
    /// a signal ended it, FFmpegError::processFailed when it ended with another status than 0 or
    /// has said that the output is not whole or empty (see WriteErrors) or that the source could
    /// not be read to its end (see ReadErrors), and SystemError when the source is no file that can
    /// be read to its end or states a bitrate that cannot be right, the folder cannot be created,
    /// the output's name is too long for its file system, the source itself would be overwritten or
    /// a thread, a descriptor or a process that it needs is not to be had. A partly written output
    /// file is left where it is.
    ///
    /// When ffmpeg was built without the media engine's encoder that the settings ask for, the
    /// conversion is run once more with the software encoder; not when cancel() was called since
    /// this one was: then the future throws FFmpegError::cancelled.
    ///
    /// When cancel() was called since this one was and a disk or a probe does not answer, the
    /// future throws FFmpegError::cancelled. The probe is killed, and nothing waits for the disk
    /// but a thread that is left behind, which asks it nothing further.
    ///
    /// Any thread. Conversions run one after another, and cancel() reaches the one that runs.
    QFuture<ConvertedFile> convert(const QUrl &source, const QUrl &destination,
                                   const ConversionSettings &settings,
                                   const ProgressHandler &onProgress)
    {
        return convert(
            source, [destination](const std::stop_token &) { return destination; }, settings,
            onProgress);
    }

    /// The same into the file that `destination` chooses when the conversion begins.
    QFuture<ConvertedFile> convert(const QUrl &source, const DestinationChooser &destination,
                                   const ConversionSettings &settings,
                                   const ProgressHandler &onProgress);

    /// Interrupts the ffmpeg that converts now, with one SIGINT per call. A probe is not
    /// interrupted, nor the run behind it prevented, unless it does not end within seconds. Any
    /// thread, never blocks.
    void cancel() { m_activeProcess.cancel(); }

private:
    ConvertedFile runConversion(const QUrl &source, const DestinationChooser &chooseDestination,
                                ConversionSettings settings, const ProgressHandler &onProgress,
                                const std::stop_token &cancelled);
    static MediaInfo probe(const QUrl &source, const QUrl &ffmpeg, const Patience &patience);

    const CancelPatience m_patience;
    ActiveProcess m_activeProcess;
    DiskThread m_disks;
    Worker m_worker; // uses the two above
};

} // namespace quorvale
