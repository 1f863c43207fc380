// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "mediainfo.h"

#include "number.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

namespace quorvale {

namespace {

// The number in a JSON string; none for any other JSON value.
std::optional<qint64> integerIn(const QJsonValue &value)
{
    return value.isString() ? parseInteger(value.toString().toUtf8()) : std::nullopt;
}

QJsonArray streamsOf(const QJsonObject &description)
{
    const QJsonArray streams = description["streams"_L1].toArray();
    const bool allObjects =
        std::ranges::all_of(streams, [](const QJsonValue &stream) { return stream.isObject(); });
    return allObjects ? streams : QJsonArray();
}

// The stated bitrate of the first stream of the type; later streams of that type do not count.
std::optional<qint64> firstBitrate(const QJsonArray &streams, QLatin1StringView type)
{
    for (const QJsonValue stream : streams) {
        if (stream["codec_type"_L1].toString() == type)
            return integerIn(stream["bit_rate"_L1]);
    }
    return std::nullopt;
}

qint64 saturatedDifference(qint64 a, qint64 b)
{
    qint64 difference = 0;
    if (!qSubOverflow(a, b, &difference))
        return difference;
    using Limits = std::numeric_limits<qint64>;
    return b < 0 ? Limits::max() : Limits::min();
}

std::optional<qint64> derivedVideoBitrate(std::optional<qint64> total, std::optional<qint64> audio)
{
    constexpr qint64 assumedAudioBitrate = 192'000;
    constexpr qint64 lowestDerivedBitrate = 250'000;
    if (!total)
        return std::nullopt;
    return std::max(saturatedDifference(*total, audio.value_or(assumedAudioBitrate)),
                    lowestDerivedBitrate);
}

} // namespace

std::optional<MediaInfo> mediaInfoFromJson(const QByteArray &json)
{
    const QJsonObject description = QJsonDocument::fromJson(json).object();
    const QJsonValue format = description["format"_L1];
    const QJsonValue statedDuration = format["duration"_L1];
    if (!statedDuration.isString())
        return std::nullopt;
    const auto duration = parseNumber(statedDuration.toString().toUtf8());
    if (!duration)
        return std::nullopt;

    const QJsonArray streams = streamsOf(description);
    auto bitrate = firstBitrate(streams, "video"_L1);
    if (!bitrate)
        bitrate = derivedVideoBitrate(integerIn(format["bit_rate"_L1]),
                                      firstBitrate(streams, "audio"_L1));
    return MediaInfo{*duration, bitrate};
}

MediaInfo mediaInfoFromBanner(const QByteArray &banner)
{
    static const QRegularExpression pattern(uR"(Duration: (\d+):(\d+):(\d+(?:\.\d+)?))"_s);
    const QRegularExpressionMatch match = pattern.match(QString::fromUtf8(banner));
    if (!match.hasMatch())
        return {};
    const auto hours = parseNumber(match.captured(1).toLatin1());
    const auto minutes = parseNumber(match.captured(2).toLatin1());
    const auto seconds = parseNumber(match.captured(3).toLatin1());
    if (!hours || !minutes || !seconds)
        return {};
    return {*hours * 3600.0 + *minutes * 60.0 + *seconds, std::nullopt};
}

} // namespace quorvale
