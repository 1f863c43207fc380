// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "linereader.h"

#include <algorithm>
#include <utility>

namespace quorvale {

LineReader::LineReader(Endings endings, Handler handler)
    : m_endings(endings), m_handler(std::move(handler))
{
}

void LineReader::read(QByteArrayView bytes)
{
    while (!bytes.isEmpty()) {
        if (std::exchange(m_skipLineFeed, false) && bytes.front() == '\n') {
            bytes = bytes.sliced(1);
            continue;
        }
        const qsizetype ending = indexOfEnding(bytes);
        if (ending < 0) {
            append(bytes);
            return;
        }
        append(bytes.first(ending));
        m_skipLineFeed = bytes[ending] == '\r';
        endLine();
        bytes = bytes.sliced(ending + 1);
    }
}

void LineReader::finish()
{
    if (m_hasStarted)
        endLine();
}

qsizetype LineReader::indexOfEnding(QByteArrayView bytes) const
{
    const qsizetype lineFeed = bytes.indexOf('\n');
    if (m_endings == Endings::lineFeed)
        return lineFeed;
    const qsizetype carriageReturn =
        bytes.first(lineFeed < 0 ? bytes.size() : lineFeed).indexOf('\r');
    return carriageReturn < 0 ? lineFeed : carriageReturn;
}

void LineReader::append(QByteArrayView bytes)
{
    m_hasStarted = true;
    const qsizetype room = longestLine - m_line.size();
    if (bytes.size() > room)
        m_isComplete = false;
    m_line.append(bytes.first(std::min(bytes.size(), room)));
}

void LineReader::endLine()
{
    m_handler({m_line, m_isComplete});
    m_line.resize(0); // keeps the memory for the next line
    m_isComplete = true;
    m_hasStarted = false;
}

} // namespace quorvale
