// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "model/encoderarguments.h"
#include "require.h"
#include "service/conversionarguments.h"
#include "service/mediainfo.h"

#include <cstddef>
#include <cstdint>

using namespace quorvale;

namespace {

bool isPositive(const QByteArray &word)
{
    bool isNumber = false;
    return word.toLongLong(&isNumber) > 0 && isNumber;
}

void checkArguments(const ConversionSettings &settings, std::optional<qint64> bitrate)
{
    if (!isEncodable(settings.goal, bitrate, settings.codec))
        return;
    const QUrl source = QUrl::fromLocalFile(QStringLiteral("/in/a.mkv"));
    const QUrl destination = QUrl::fromLocalFile(QStringLiteral("/out/a.mp4"));
    const QByteArrayList arguments = conversionArguments(
        source, destination, settings, targetBitrate(settings.goal, bitrate, settings.codec));
    for (const char *option : {"-b:v", "-maxrate", "-bufsize"}) {
        const qsizetype place = arguments.indexOf(option);
        require(place < 0 || isPositive(arguments[place + 1]));
    }
    require(arguments.last() == "/out/a.mp4");
}

} // namespace

// The whole way from what ffprobe says about a source to ffmpeg's command line: whatever it is,
// there is one for every setting that can be chosen, or it is told before that there is none.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const auto info = mediaInfoFromJson(
        QByteArray(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size)));
    if (!info)
        return 0;
    for (const EncodingGoal goal : allCases<EncodingGoal>()) {
        for (const OutputCodec codec : allCases<OutputCodec>()) {
            for (const bool useHardware : {false, true})
                checkArguments({.codec = codec, .goal = goal, .useHardware = useHardware},
                               info->videoBitrate);
        }
    }
    return 0;
}
