// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "encoderarguments.h"

#include "checkedarithmetic.h"

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

namespace quorvale {

namespace {

QStringList bitrateArguments(qint64 requested)
{
    constexpr qint64 floor = 250'000;
    const qint64 bitrate = std::max(requested, floor);
    const qint64 maximum = truncatedToInteger(static_cast<double>(bitrate) * 1.5);
    const qint64 buffer = checkedProduct(bitrate, 2);
    return {
        u"-b:v"_s,     QString::number(bitrate), u"-maxrate"_s, QString::number(maximum),
        u"-bufsize"_s, QString::number(buffer),
    };
}

// The constant rate factor of libx264 and libx265: lower is better, 12 to 30 here.
qint64 constantRateFactor(double quality)
{
    // Two roundings, the product's and the sum's; see the compiler options.
    const double product = quality * -0.23;
    return std::clamp<qint64>(roundedToInteger(35.0 + product), 12, 30);
}

QStringList qualityArguments(bool hardware, double quality)
{
    if (hardware)
        return {u"-q:v"_s, QString::number(roundedToInteger(quality))};
    return {u"-crf"_s, QString::number(constantRateFactor(quality))};
}

QStringList deliveryArguments(OutputCodec codec, bool hardware, double quality,
                              std::optional<qint64> targetBitrate)
{
    QStringList arguments{u"-c:v"_s, videoEncoder(codec, hardware)};
    if (!hardware)
        arguments << u"-preset"_s << u"medium"_s;
    arguments << u"-tag:v"_s << (codec == OutputCodec::hevc ? u"hvc1"_s : u"avc1"_s);
    arguments +=
        targetBitrate ? bitrateArguments(*targetBitrate) : qualityArguments(hardware, quality);
    if (codec == OutputCodec::h264)
        arguments << u"-pix_fmt"_s << u"yuv420p"_s;
    return arguments;
}

QStringList proResArguments(OutputCodec codec, bool hardware)
{
    QStringList arguments{u"-c:v"_s, videoEncoder(codec, hardware), u"-profile:v"_s};
    if (codec == OutputCodec::proRes422)
        arguments << u"2"_s;
    else if (codec == OutputCodec::proRes422HQ)
        arguments << u"3"_s;
    else
        arguments << u"4"_s;
    if (!hardware)
        arguments << u"-vendor"_s << u"apl0"_s;
    return arguments;
}

double balancedBitrate(qint64 source, OutputCodec codec)
{
    return static_cast<double>(source) * (codec == OutputCodec::h264 ? 1.6 : 1.2);
}

} // namespace

bool isEncodable(EncodingGoal goal, std::optional<qint64> source, OutputCodec codec)
{
    if (!source || isProRes(codec))
        return true;
    if (goal == EncodingGoal::balanced && !fitsInteger(balancedBitrate(*source, codec)))
        return false;
    // The rate control's buffer is twice the target, the largest of the numbers.
    constexpr qint64 highestTarget = std::numeric_limits<qint64>::max() / 2;
    return targetBitrate(goal, source, codec).value_or(0) <= highestTarget;
}

std::optional<qint64> targetBitrate(EncodingGoal goal, std::optional<qint64> source,
                                    OutputCodec codec)
{
    if (!source || isProRes(codec))
        return std::nullopt;
    switch (goal) {
    case EncodingGoal::constantQuality:
        return std::nullopt;
    case EncodingGoal::sameSize:
        return source;
    case EncodingGoal::balanced:
        return truncatedToInteger(balancedBitrate(*source, codec));
    }
    Q_UNREACHABLE();
}

QString videoEncoder(OutputCodec codec, bool hardware)
{
    switch (codec) {
    case OutputCodec::h264:
        return hardware ? u"h264_videotoolbox"_s : u"libx264"_s;
    case OutputCodec::hevc:
        return hardware ? u"hevc_videotoolbox"_s : u"libx265"_s;
    case OutputCodec::proRes422:
    case OutputCodec::proRes422HQ:
    case OutputCodec::proRes4444:
        return hardware ? u"prores_videotoolbox"_s : u"prores_ks"_s;
    }
    Q_UNREACHABLE();
}

QStringList videoArguments(OutputCodec codec, bool hardware, double quality,
                           std::optional<qint64> targetBitrate)
{
    return isProRes(codec) ? proResArguments(codec, hardware)
                           : deliveryArguments(codec, hardware, quality, targetBitrate);
}

} // namespace quorvale
