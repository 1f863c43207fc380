// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "errortail.h"

#include <QStringList>

namespace quorvale {

namespace {

constexpr std::size_t keptLines = 8;

bool isOfEarlyEnd(QByteArrayView line)
{
    const qsizetype end = line.startsWith('[') ? line.indexOf("] ") : -1;
    const QByteArrayView words = end < 0 ? QByteArrayView() : line.sliced(end + 2);
    return words.startsWith("File ended prematurely")
           || (words.startsWith("stream ") && words.endsWith(": partial file"))
           || words.startsWith("Packet corrupt (stream = ");
}

} // namespace

ErrorTail::ErrorTail(const QString &encoder, const QByteArray &source,
                     const QByteArray &destination)
    : m_unknownEncoder("Unknown encoder '" + encoder.toUtf8() + '\''),
      m_readErrors(source, destination), m_writeErrors(destination),
      m_lines(LineReader::Endings::lineFeed,
              [this](const LineReader::Line &line) { takeLine(line.bytes); })
{
}

void ErrorTail::takeLine(QByteArrayView line)
{
    m_readErrors.takeLine(line);
    m_writeErrors.takeLine(line);
    if (isOfEarlyEnd(line)) {
        m_saysEarlyEnd = true;
        m_mayMeanReadError = m_mayMeanReadError || line.startsWith("[mov,");
    }
    if (line.isEmpty())
        return;
    // Newer versions of ffmpeg put a tag in square brackets before these words.
    m_lacksEncoder = m_lacksEncoder || line.endsWith(m_unknownEncoder);
    if (m_tail.size() == keptLines)
        m_tail.pop_front();
    m_tail.push_back(line.toByteArray());
}

QString ErrorTail::text() const
{
    QStringList lines;
    for (const QByteArray &line : m_tail)
        lines << QString::fromUtf8(line);
    return lines.join(u'\n');
}

} // namespace quorvale
