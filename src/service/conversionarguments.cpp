// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "conversionarguments.h"

#include "model/encoderarguments.h"

using namespace Qt::StringLiterals;

namespace quorvale {

namespace {

QStringList audioArguments(AudioMode audio)
{
    switch (audio) {
    case AudioMode::aac:
        return {u"-c:a"_s, u"aac"_s, u"-b:a"_s, u"192k"_s};
    case AudioMode::copy:
        return {u"-c:a"_s, u"copy"_s};
    case AudioMode::pcm:
        return {u"-c:a"_s, u"pcm_s24le"_s};
    }
    Q_UNREACHABLE();
}

} // namespace

QStringList conversionArguments(const QUrl &source, const QUrl &destination,
                                const ConversionSettings &settings,
                                std::optional<qint64> targetBitrate)
{
    QStringList arguments{settings.overwrite ? u"-y"_s : u"-n"_s, u"-hide_banner"_s, u"-i"_s,
                          source.toLocalFile()};
    arguments +=
        videoArguments(settings.codec, settings.useHardware, settings.quality, targetBitrate);
    arguments += audioArguments(settings.audio);
    arguments << u"-map_metadata"_s << u"0"_s;
    arguments << u"-movflags"_s << u"+faststart"_s;
    arguments << u"-progress"_s << u"pipe:1"_s << u"-nostats"_s;
    arguments << destination.toLocalFile();
    return arguments;
}

} // namespace quorvale
