// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "encoderrun.h"

#include "conversionarguments.h"
#include "ffmpegerror.h"
#include "linereader.h"
#include "model/encoderarguments.h"
#include "model/filepath.h"
#include "progress.h"

using namespace Qt::StringLiterals;

namespace quorvale {

EncoderRun::EncoderRun(const QUrl &ffmpeg, const QUrl &source, const QUrl &destination,
                       const ConversionSettings &settings, std::optional<qint64> targetBitrate)
    : m_process(std::make_shared<ChildProcess>(
        filePath(ffmpeg), conversionArguments(source, destination, settings, targetBitrate))),
      m_errors(videoEncoder(settings.codec, settings.useHardware), filePath(source),
               filePath(destination))
{
}

void EncoderRun::run(double duration, const std::function<void(double)> &onProgress)
{
    m_duration = duration;
    LineReader progress(LineReader::Endings::lineFeedOrReturn, [&](const LineReader::Line &line) {
        if (!line.isComplete)
            return;
        m_reached = progressTime(line.bytes).value_or(m_reached);
        if (const auto fraction = progressFraction(line.bytes, duration))
            onProgress(*fraction);
    });

    m_end = m_process->run([&](QByteArrayView bytes) { progress.read(bytes); },
                           [this](QByteArrayView bytes) { m_errors.read(bytes); });
    progress.finish();
    m_errors.finish();
}

void EncoderRun::verify() const
{
    if (m_end.byUncaughtSignal)
        throw FFmpegError::cancelled();
    if (hasFailed())
        throw FFmpegError::processFailed(m_errors.text());
    for (const QString &errors : {m_errors.writeErrors().text(), m_errors.readErrors().text()}) {
        if (!errors.isEmpty())
            throw FFmpegError::processFailed(errors);
    }
    if (m_errors.writeErrors().isNothingWritten())
        throw FFmpegError::processFailed(
            u"Nothing was converted: ffmpeg found neither pictures nor sound in the video.\n"_s
            + m_errors.text());
}

std::optional<EarlyEnd> EncoderRun::earlyEnd() const
{
    // Of a whole source an encoder may keep back the last few pictures' time.
    constexpr double wholePart = 0.95;
    if (!m_errors.saysEarlyEnd() || m_duration <= 0.0 || m_reached >= wholePart * m_duration)
        return std::nullopt;
    return EarlyEnd{.reached = m_reached, .duration = m_duration};
}

} // namespace quorvale
