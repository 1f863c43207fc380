// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "require.h"
#include "service/errortail.h"
#include "service/linereader.h"
#include "service/progress.h"

#include <QByteArrayList>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>

using namespace quorvale;

namespace {

struct Outcome
{
    QByteArrayList lines;
    QList<double> fractions;
    QString errors;

    bool operator==(const Outcome &) const = default;
};

// Reads the stream as a conversion does, as ffmpeg's progress and as its complaints, when it
// arrives in pieces of so many bytes.
Outcome read(QByteArrayView stream, qsizetype pieceSize, double duration)
{
    Outcome outcome;
    LineReader progress(LineReader::Endings::lineFeedOrReturn, [&](const LineReader::Line &line) {
        require(line.bytes.size() <= LineReader::longestLine);
        require(!line.bytes.contains('\n') && !line.bytes.contains('\r'));
        outcome.lines << line.bytes.toByteArray();
        const auto fraction = progressFraction(line.bytes, duration);
        if (line.isComplete && fraction)
            outcome.fractions << *fraction;
    });
    ErrorTail errors(QStringLiteral("libx264"), "/in/a.mp4", "/out/a.mp4");
    while (!stream.isEmpty()) {
        const QByteArrayView piece = stream.first(std::min(pieceSize, stream.size()));
        progress.read(piece);
        errors.read(piece);
        stream = stream.sliced(piece.size());
    }
    progress.finish();
    errors.finish();
    outcome.errors = errors.text();
    return outcome;
}

} // namespace

// The first byte decides on the pieces, the second on the length of the source.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    if (size < 2)
        return 0;
    const QByteArrayView stream(reinterpret_cast<const char *>(data + 2),
                                static_cast<qsizetype>(size - 2));
    const double duration = data[1];
    const Outcome whole = read(stream, std::max<qsizetype>(stream.size(), 1), duration);
    require(whole == read(stream, data[0] + 1, duration));
    for (const double fraction : whole.fractions)
        require(std::isfinite(fraction) && fraction <= 1.0);
    require(whole.errors.count(u'\n') < 8);
    return 0;
}
