// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "conversionarguments.h"

#include "model/encoderarguments.h"
#include "model/filepath.h"

namespace quorvale {

namespace {

QByteArrayList audioArguments(AudioMode audio)
{
    switch (audio) {
    case AudioMode::aac:
        return {"-c:a", "aac", "-b:a", "192k"};
    case AudioMode::copy:
        return {"-c:a", "copy"};
    case AudioMode::pcm:
        return {"-c:a", "pcm_s24le"};
    }
    Q_UNREACHABLE();
}

} // namespace

QByteArrayList conversionArguments(const QUrl &source, const QUrl &destination,
                                   const ConversionSettings &settings,
                                   std::optional<qint64> targetBitrate)
{
    QByteArrayList arguments{settings.overwrite ? "-y" : "-n", "-hide_banner", "-i",
                             filePath(source)};
    for (const QString &word :
         videoArguments(settings.codec, settings.useHardware, settings.quality, targetBitrate))
        arguments << word.toLatin1();
    arguments += audioArguments(settings.audio);
    arguments << "-map_metadata"
              << "0";
    arguments << "-movflags"
              << "+faststart";
    arguments << "-progress"
              << "pipe:1"
              << "-nostats";
    arguments << filePath(destination);
    return arguments;
}

} // namespace quorvale
