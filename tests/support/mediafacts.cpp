// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "mediafacts.h"

#include "toolrun.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace quorvale::test {

namespace {

QJsonObject firstStream(const QJsonArray &streams, QLatin1StringView type)
{
    for (const QJsonValue &stream : streams) {
        if (stream["codec_type"_L1].toString() == type)
            return stream.toObject();
    }
    return {};
}

std::optional<double> number(const QJsonValue &value)
{
    bool isNumber = false;
    const double number = value.toString().toDouble(&isNumber);
    return isNumber ? std::optional(number) : std::nullopt;
}

} // namespace

MediaFacts mediaFacts(const QString &path)
{
    const ToolRun run = runTool(u"ffprobe"_s, {u"-v"_s, u"error"_s, u"-show_format"_s,
                                               u"-show_streams"_s, u"-of"_s, u"json"_s, path});
    const QJsonObject description = QJsonDocument::fromJson(run.output).object();
    const QJsonObject format = description["format"_L1].toObject();
    const QJsonObject tags = format["tags"_L1].toObject();
    const QJsonArray streams = description["streams"_L1].toArray();
    const QJsonObject video = firstStream(streams, "video"_L1);

    MediaFacts facts;
    facts.format = format["format_name"_L1].toString();
    facts.majorBrand = tags["major_brand"_L1].toString();
    facts.title = tags["title"_L1].toString();
    facts.duration = number(format["duration"_L1]);
    facts.videoCodec = video["codec_name"_L1].toString();
    facts.videoTag = video["codec_tag_string"_L1].toString();
    facts.videoProfile = video["profile"_L1].toString();
    facts.pixelFormat = video["pix_fmt"_L1].toString();
    facts.audioCodec = firstStream(streams, "audio"_L1)["codec_name"_L1].toString();
    return facts;
}

QList<int> packetCounts(const QString &path)
{
    const ToolRun run =
        runTool(u"ffprobe"_s, {u"-v"_s, u"error"_s, u"-count_packets"_s, u"-show_entries"_s,
                               u"stream=nb_read_packets"_s, u"-of"_s, u"json"_s, path});
    const QJsonObject description = QJsonDocument::fromJson(run.output).object();
    QList<int> counts;
    for (const QJsonValue stream : description["streams"_L1].toArray())
        counts << stream["nb_read_packets"_L1].toString().toInt();
    return counts;
}

} // namespace quorvale::test
