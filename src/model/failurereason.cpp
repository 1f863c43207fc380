// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "failurereason.h"

#include <algorithm>
#include <array>

namespace quorvale {

namespace {

// What descriptions begin with, behind the name of the part that gives them.
constexpr auto beginnings = std::to_array<QStringView>({
    // What is read and written
    u"Input #",
    u"Output #",
    u"Stream mapping:",
    u"Press [q] ",
    u"Guessed Channel Layout",
    u"Codec AVOption ",
    u"Truncating packet of size ",
    // How far it came
    u"frame=",
    u"size=",
    u"video:",
    u"Starting second pass: ",
    u"Error closing progress log, ",
    // x264, at its beginning and at its end
    u"using ",
    u"profile ",
    u"264 - core ",
    u"frame I:",
    u"frame P:",
    u"frame B:",
    u"consecutive B-frames:",
    u"mb I ",
    u"mb P ",
    u"mb B ",
    u"final ratefactor:",
    u"8x8 transform ",
    u"direct mvs ",
    u"coded y,",
    u"i16 v,",
    u"i8 v,",
    u"i4 v,",
    u"i8c dc,",
    u"Weighted P-Frames:",
    u"ref P L",
    u"ref B L",
    u"kb/s:",
    // x265 and AAC
    u"x265 [info]: ",
    u"encoded ",
    u"Qavg: ",
    // libgcrypt, where the user may lock no memory
    u"Warning: using insecure memory!",
});

// What remarks end with that ffmpeg makes of whatever it then refuses.
constexpr auto endings = std::to_array<QStringView>({
    u", misdetection possible!",
    u": codec frame size is not set",
});

// Parts of ffmpeg put their name and an address before what they say: "[libx264 @ 0x5581] kb/s:9".
QStringView withoutName(QStringView line)
{
    const qsizetype end = line.startsWith(u'[') ? line.indexOf(u"] ") : -1;
    return end < 0 ? line : line.sliced(end + 2);
}

bool isDescription(QStringView line)
{
    const QStringView words = withoutName(line);
    return line.startsWith(u' ')
           || std::ranges::any_of(beginnings,
                                  [&](QStringView text) { return words.startsWith(text); })
           || std::ranges::any_of(endings, [&](QStringView text) { return words.endsWith(text); });
}

} // namespace

QString failureReason(QStringView message)
{
    qsizetype start = 0;
    for (const QStringView line : message.tokenize(u'\n')) {
        if (!isDescription(line))
            return message.sliced(start).toString();
        start += line.size() + 1;
    }
    return message.toString();
}

} // namespace quorvale
