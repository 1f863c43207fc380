// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "readerrors.h"

#include <algorithm>
#include <array>
#include <cerrno>

namespace quorvale {

namespace {

struct SystemErrorWords
{
    int error;
    QByteArrayView words; // of the C locale, which ffmpeg keeps
};

constexpr auto systemErrors = std::to_array<SystemErrorWords>({
    {EIO, "Input/output error"},
    {ESTALE, "Stale file handle"},
    {ENOTCONN, "Transport endpoint is not connected"},
    {ETIMEDOUT, "Connection timed out"},
    {ENODEV, "No such device"},
    {ENXIO, "No such device or address"},
});

// What stands behind the beginning of the line; none where it begins otherwise.
QByteArrayView wordsOfDemuxer(QByteArrayView line)
{
    constexpr QByteArrayView beginning = "] Error during demuxing: ";
    const qsizetype at = line.startsWith("[in#0") ? line.indexOf(beginning) : -1;
    return at < 0 ? QByteArrayView() : line.sliced(at + beginning.size());
}

} // namespace

ReadErrors::ReadErrors(const QByteArray &source, const QByteArray &destination) : m_source(source)
{
    for (const QByteArray &line : PrintedPath(destination).text().split('\n'))
        m_isForged = m_isForged || isReadError(line);
}

void ReadErrors::takeLine(QByteArrayView line)
{
    const QByteArrayView text = m_source.withLinesBefore(line);
    if (line == QByteArrayView("Stream mapping:"))
        m_isForged = m_isForged || !m_found.isEmpty();
    else if (m_found.isEmpty() && isReadError(text))
        m_found = text.toByteArray();
    else if (m_found.isEmpty() && isReadError(line))
        m_found = line.toByteArray();
}

bool ReadErrors::isReadError(QByteArrayView text) const
{
    const QByteArray &path = m_source.text();
    const QByteArrayView words = text.startsWith(path) && text.sliced(path.size()).startsWith(": ")
                                     ? text.sliced(path.size() + 2)
                                     : wordsOfDemuxer(text);
    return std::ranges::find(systemErrors, words, &SystemErrorWords::words) != systemErrors.end();
}

QByteArrayView ReadErrors::wordsFor(int error)
{
    const auto *const found = std::ranges::find(systemErrors, error, &SystemErrorWords::error);
    return found == systemErrors.end() ? QByteArrayView() : found->words;
}

} // namespace quorvale
