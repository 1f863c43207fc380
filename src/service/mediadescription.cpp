// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "mediadescription.h"

#include "childprocess.h"
#include "systemerror.h"

#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quorvale {

namespace {

// Collects the beginning of a stream and lets the rest pass.
ChildProcess::Reader beginningInto(QByteArray &collected)
{
    constexpr qsizetype mostBytes = 16'777'216;
    return [&collected](QByteArrayView bytes) {
        collected.append(bytes.first(std::min(bytes.size(), mostBytes - collected.size())));
    };
}

} // namespace

QByteArray describeWithFFprobe(const QString &ffprobe, const QString &path)
{
    QByteArray json;
    try {
        ChildProcess process(ffprobe, {u"-v"_s, u"error"_s, u"-show_entries"_s,
                                       u"format=duration,bit_rate:stream=codec_type,bit_rate"_s,
                                       u"-of"_s, u"json"_s, path});
        process.run(beginningInto(json), {});
    } catch (const SystemError &) {
        return {};
    }
    return json;
}

QByteArray describeWithFFmpeg(const QString &ffmpeg, const QString &path)
{
    QByteArray banner;
    try {
        ChildProcess process(ffmpeg, {u"-hide_banner"_s, u"-i"_s, path});
        process.run({}, beginningInto(banner));
    } catch (const SystemError &) {
        return {};
    }
    return banner;
}

} // namespace quorvale
