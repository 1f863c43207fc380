// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "childprocess.h"
#include "errortail.h"
#include "model/conversionsettings.h"
#include "model/earlyend.h"

#include <QUrl>

#include <functional>
#include <memory>
#include <optional>

namespace quorvale {

/// One run of ffmpeg that converts a file.
class EncoderRun
{
public:
    /// Of `ffmpeg`, from `source` to `destination`, all file URLs. `targetBitrate` is the video's,
    /// in bits per second, or none when quality decides.
    EncoderRun(const QUrl &ffmpeg, const QUrl &source, const QUrl &destination,
               const ConversionSettings &settings, std::optional<qint64> targetBitrate);

    /// Runs it to its end; blocks the calling thread, on which `onProgress` is told the fractions
    /// done of the source's `duration`, in seconds. Throws SystemError when ffmpeg cannot be
    /// started. To be called once.
    void run(double duration, const std::function<void(double)> &onProgress);

    /// The process, for interrupting it.
    const std::shared_ptr<ChildProcess> &process() const { return m_process; }

    /// Whether it failed because ffmpeg was built without the encoder.
    bool lacksEncoder() const { return hasFailed() && m_errors.lacksEncoder(); }

    /// Throws FFmpegError unless the run has ended with an output, and that is all that could be
    /// made of the source.
    void verify() const;

    /// Whether ffmpeg may have taken a disk that failed for the end of the source.
    bool mayMeanReadError() const { return m_errors.mayMeanReadError(); }

    /// Where the source ended, when both ffmpeg says that it ended early and the output is shorter
    /// than the source by a good part. Neither tells alone: there are corrupt packets in videos
    /// that are otherwise whole, and of some that are whole ffmpeg states a small part of their
    /// duration as the time reached.
    std::optional<EarlyEnd> earlyEnd() const;

private:
    bool hasFailed() const { return !m_end.byUncaughtSignal && m_end.exitStatus != 0; }

    const std::shared_ptr<ChildProcess> m_process;
    ErrorTail m_errors;
    ChildProcess::End m_end;
    double m_duration = 0.0; // of the source, ...
    double m_reached = 0.0;  // ... and the last time stated of the output, in seconds
};

} // namespace quorvale
