// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "mediadescription.h"

#include "childprocess.h"
#include "systemerror.h"

#include <algorithm>

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

QByteArray describeWithFFprobe(const QByteArray &ffprobe, const QByteArray &path,
                               const Patience &patience)
{
    QByteArray json;
    try {
        ChildProcess process(ffprobe, {"-v", "error", "-show_entries",
                                       "format=duration,bit_rate:stream=codec_type,bit_rate", "-of",
                                       "json", path});
        process.run(beginningInto(json), {}, patience);
    } catch (const SystemError &) {
        return {};
    }
    return json;
}

QByteArray describeWithFFmpeg(const QByteArray &ffmpeg, const QByteArray &path,
                              const Patience &patience)
{
    QByteArray banner;
    try {
        ChildProcess process(ffmpeg, {"-hide_banner", "-i", path});
        process.run({}, beginningInto(banner), patience);
    } catch (const SystemError &) {
        return {};
    }
    return banner;
}

} // namespace quorvale
