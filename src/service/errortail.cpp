// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "errortail.h"

#include <QStringList>

namespace quorvale {

namespace {

constexpr std::size_t keptLines = 8;

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
