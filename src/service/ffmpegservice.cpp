// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "ffmpegservice.h"

#include "childprocess.h"
#include "conversionarguments.h"
#include "errortail.h"
#include "ffmpegerror.h"
#include "mediadescription.h"
#include "model/encoderarguments.h"
#include "model/filepath.h"
#include "outputfolder.h"
#include "progress.h"
#include "sourceguard.h"
#include "specialfile.h"
#include "systemerror.h"
#include "tooldirectories.h"

#include <QFileInfo>
#include <QPromise>
#include <QScopeGuard>

using namespace Qt::StringLiterals;

namespace quorvale {

namespace {

SystemError implausibleBitrate(qint64 bitrate)
{
    return SystemError(
        u"The video states a bitrate of %1 bits per second, which cannot be right. With the goal “%2” it can be converted all the same."_s
            .arg(bitrate)
            .arg(rawValue(EncodingGoal::constantQuality)));
}

} // namespace

FFmpegService::FFmpegService() = default;
FFmpegService::~FFmpegService() = default;

std::optional<QUrl> FFmpegService::locateBinary(const QString &named)
{
    for (const QString &directory : toolDirectories()) {
        const QFileInfo candidate(directory + named);
        if (candidate.isFile() && candidate.isExecutable())
            return QUrl::fromLocalFile(candidate.filePath());
    }
    return std::nullopt;
}

const QSet<QString> &FFmpegService::supportedExtensions()
{
    static const QSet<QString> extensions{u"mp4"_s, u"mov"_s, u"mkv"_s,  u"webm"_s, u"m4v"_s,
                                          u"avi"_s, u"mts"_s, u"m2ts"_s, u"ts"_s,   u"flv"_s};
    return extensions;
}

QFuture<void> FFmpegService::convert(const QUrl &source, const QUrl &destination,
                                     const ConversionSettings &settings,
                                     const ProgressHandler &onProgress)
{
    // The promise is handled here rather than by QtConcurrent::run, which would wrap the errors.
    const auto promise = std::make_shared<QPromise<void>>();
    promise->start();
    {
        const std::scoped_lock guard(m_lock);
        m_wasCancelled = false;
    }
    m_workers.start([=, this] {
        try {
            runConversion(source, destination, settings, onProgress);
        } catch (...) {
            promise->setException(std::current_exception());
        }
        promise->finish();
    });
    return promise->future();
}

struct FFmpegService::EncoderRun
{
    ChildProcess::End end;
    QString errors;
    bool lacksEncoder = false;
    QString writeErrors;

    bool hasFailed() const { return !end.byUncaughtSignal && end.exitStatus != 0; }
};

void FFmpegService::runConversion(const QUrl &source, const QUrl &destination,
                                  ConversionSettings settings, const ProgressHandler &onProgress)
{
    const auto ffmpeg = locateBinary(u"ffmpeg"_s);
    if (!ffmpeg)
        throw FFmpegError::notFound();
    refuseSpecialFile(source);
    const MediaInfo info = probe(source, *ffmpeg);
    createFolderFor(destination);
    if (settings.overwrite)
        guardSource(source, destination);
    if (info.videoBitrate && !isEncodable(settings.goal, info.videoBitrate, settings.codec))
        throw implausibleBitrate(*info.videoBitrate);
    const auto target = targetBitrate(settings.goal, info.videoBitrate, settings.codec);

    enum class Attempt { first, withSoftwareEncoder };
    const auto encode = [&](Attempt attempt) {
        const auto process = std::make_shared<ChildProcess>(
            filePath(*ffmpeg), conversionArguments(source, destination, settings, target));
        // Before the launch, so that a cancel from here on reaches the process.
        publish(process);
        const auto withdraw = qScopeGuard([this] { publish(nullptr); });
        if (attempt == Attempt::withSoftwareEncoder && wasCancelled())
            throw FFmpegError::cancelled();
        return runEncoder(*process, videoEncoder(settings.codec, settings.useHardware), destination,
                          info.duration, onProgress);
    };

    EncoderRun run = encode(Attempt::first);
    if (settings.useHardware && run.hasFailed() && run.lacksEncoder) {
        settings.useHardware = false;
        run = encode(Attempt::withSoftwareEncoder);
    }
    if (run.end.byUncaughtSignal)
        throw FFmpegError::cancelled();
    if (run.hasFailed())
        throw FFmpegError::processFailed(run.errors);
    if (!run.writeErrors.isEmpty())
        throw FFmpegError::processFailed(run.writeErrors);
}

FFmpegService::EncoderRun FFmpegService::runEncoder(ChildProcess &process, const QString &encoder,
                                                    const QUrl &destination, double duration,
                                                    const ProgressHandler &onProgress)
{
    ErrorTail errors(encoder, filePath(destination));
    LineReader progress(LineReader::Endings::lineFeedOrReturn, [&](const LineReader::Line &line) {
        const auto fraction = progressFraction(line.bytes, duration);
        if (line.isComplete && fraction)
            onProgress(*fraction);
    });

    const ChildProcess::End end = process.run([&](QByteArrayView bytes) { progress.read(bytes); },
                                              [&](QByteArrayView bytes) { errors.read(bytes); });
    progress.finish();
    errors.finish();
    return {end, errors.text(), errors.lacksEncoder(), errors.writeErrors()};
}

MediaInfo FFmpegService::probe(const QUrl &source, const QUrl &ffmpeg)
{
    const QByteArray path = filePath(source);
    if (const auto ffprobe = locateBinary(u"ffprobe"_s)) {
        const auto info = mediaInfoFromJson(describeWithFFprobe(filePath(*ffprobe), path));
        if (info)
            return *info;
    }
    return mediaInfoFromBanner(describeWithFFmpeg(filePath(ffmpeg), path));
}

void FFmpegService::publish(const std::shared_ptr<ChildProcess> &process)
{
    const std::scoped_lock guard(m_lock);
    m_activeProcess = process;
}

bool FFmpegService::wasCancelled()
{
    const std::scoped_lock guard(m_lock);
    return m_wasCancelled;
}

void FFmpegService::cancel()
{
    std::shared_ptr<ChildProcess> process;
    {
        const std::scoped_lock guard(m_lock);
        m_wasCancelled = true;
        process = m_activeProcess;
    }
    if (process)
        process->interrupt();
}

} // namespace quorvale
