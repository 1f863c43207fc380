// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "ffmpegservice.h"

#include "descriptors.h"
#include "encoderrun.h"
#include "ffmpegerror.h"
#include "mediadescription.h"
#include "model/encoderarguments.h"
#include "model/filepath.h"
#include "outputfolder.h"
#include "readthrough.h"
#include "sourceguard.h"
#include "specialfile.h"
#include "systemerror.h"
#include "tooldirectories.h"

#include <QFileInfo>
#include <QPromise>

#include <system_error>

using namespace Qt::StringLiterals;

namespace quorvale {

namespace {

// The most that a conversion needs at a time.
constexpr int neededDescriptors = 16;

SystemError implausibleBitrate(qint64 bitrate)
{
    return SystemError(
        u"The video states a bitrate of %1 bits per second, which cannot be right. With the goal “%2” it can be converted all the same."_s
            .arg(bitrate)
            .arg(rawValue(EncodingGoal::constantQuality)));
}

SystemError cannotStart(const std::system_error &error)
{
    return SystemError(u"The conversion could not be started: %1"_s.arg(
        QString::fromLocal8Bit(error.code().message())));
}

} // namespace

FFmpegService::FFmpegService(const CancelPatience &patience) : m_patience(patience) {}
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
    // Kept to the very end, when a thread that was left behind may still look into it.
    static const auto &extensions =
        *new QSet<QString>{u"mp4"_s, u"mov"_s, u"mkv"_s,  u"webm"_s, u"m4v"_s,
                           u"avi"_s, u"mts"_s, u"m2ts"_s, u"ts"_s,   u"flv"_s};
    return extensions;
}

QFuture<ConvertedFile> FFmpegService::convert(const QUrl &source,
                                              const DestinationChooser &destination,
                                              const ConversionSettings &settings,
                                              const ProgressHandler &onProgress)
{
    // The promise is handled here rather than by QtConcurrent::run, which would wrap the errors.
    const auto promise = std::make_shared<QPromise<ConvertedFile>>();
    const auto fail = [promise](const std::exception_ptr &error) {
        promise->setException(error);
        promise->finish();
    };
    promise->start();
    const auto task = [=, this, cancelled = m_activeProcess.watchForCancel()] {
        try {
            promise->addResult(runConversion(source, destination, settings, onProgress, cancelled));
            promise->finish();
        } catch (const std::system_error &error) {
            fail(std::make_exception_ptr(cannotStart(error)));
        } catch (...) {
            fail(std::current_exception());
        }
    };
    try {
        m_worker.post(task);
    } catch (const std::system_error &error) {
        fail(std::make_exception_ptr(cannotStart(error)));
    }
    return promise->future();
}

ConvertedFile FFmpegService::runConversion(const QUrl &source,
                                           const DestinationChooser &chooseDestination,
                                           ConversionSettings settings,
                                           const ProgressHandler &onProgress,
                                           const std::stop_token &cancelled)
{
    const Patience diskPatience{cancelled, m_patience.disk};
    const Patience probePatience{cancelled, m_patience.probe};

    demandDescriptors(neededDescriptors);
    const auto ffmpeg = locateBinary(u"ffmpeg"_s);
    if (!ffmpeg)
        throw FFmpegError::notFound();
    const auto prepareFiles = [source, chooseDestination](const std::stop_token &givenUp) {
        refuseSpecialFile(source);
        return chooseDestination(givenUp);
    };
    const QUrl destination = m_disks.ask(diskPatience, prepareFiles);
    const MediaInfo info = probe(source, *ffmpeg, probePatience);
    const auto prepareFolder = [source, destination,
                                overwrite = settings.overwrite](const std::stop_token &givenUp) {
        createFolderFor(destination, givenUp);
        if (overwrite && !givenUp.stop_requested())
            guardSource(source, destination);
    };
    m_disks.ask(diskPatience, prepareFolder);
    if (info.videoBitrate && !isEncodable(settings.goal, info.videoBitrate, settings.codec))
        throw implausibleBitrate(*info.videoBitrate);
    const auto target = targetBitrate(settings.goal, info.videoBitrate, settings.codec);

    for (bool isAgain = false;; isAgain = true) {
        EncoderRun run(*ffmpeg, source, destination, settings, target);
        const auto published = m_activeProcess.publish(run.process());
        // A cancel between the two runs counts as well.
        if (isAgain && cancelled.stop_requested())
            throw FFmpegError::cancelled();
        run.run(info.duration, onProgress);
        if (!settings.useHardware || !run.lacksEncoder()) {
            run.verify();
            if (run.mayMeanReadError())
                m_disks.ask(diskPatience, [source, cancelled](const std::stop_token &) {
                    readThrough(source, cancelled);
                });
            return {destination, run.earlyEnd()};
        }
        settings.useHardware = false; // once more without the media engine
    }
}

MediaInfo FFmpegService::probe(const QUrl &source, const QUrl &ffmpeg, const Patience &patience)
{
    const QByteArray path = filePath(source);
    if (const auto ffprobe = locateBinary(u"ffprobe"_s)) {
        const auto info =
            mediaInfoFromJson(describeWithFFprobe(filePath(*ffprobe), path, patience));
        if (info)
            return *info;
    }
    return mediaInfoFromBanner(describeWithFFmpeg(filePath(ffmpeg), path, patience));
}

} // namespace quorvale
