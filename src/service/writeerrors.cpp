// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "writeerrors.h"

#include <algorithm>

namespace quorvale {

namespace {

constexpr qsizetype keptErrors = 8;

// What stands behind the name that newer versions put before it.
QByteArrayView wordsOfMuxer(QByteArrayView line)
{
    return line.startsWith("[out#") ? line.sliced(line.indexOf("] ") + 1) : QByteArrayView();
}

bool isOfAMuxer(QByteArrayView line)
{
    const QByteArrayView words = wordsOfMuxer(line);
    return words.startsWith(" Error writing trailer: ")
           || words.startsWith(" Error closing file: ");
}

bool isSumOfNothing(QByteArrayView line)
{
    return (line.startsWith("video:0") || wordsOfMuxer(line).startsWith(" video:0"))
           && line.endsWith(" muxing overhead: unknown");
}

bool startsSecondPass(QByteArrayView line)
{
    return (line.startsWith("[mp4 @ ") || line.startsWith("[mov @ "))
           && line.endsWith(
               "] Starting second pass: moving the moov atom to the beginning of the file");
}

} // namespace

WriteErrors::WriteErrors(const QByteArray &destination)
    : m_destination(destination), m_beginnings{"Error writing trailer of " + m_destination.text()
                                                   + ": ",
                                               "Error closing file " + m_destination.text() + ": "},
      m_refusal("File '" + m_destination.text() + "' already exists. Exiting.")
{
}

void WriteErrors::takeLine(QByteArrayView line)
{
    if (startsSecondPass(line)) {
        m_found.clear();
        m_isNothingWritten = false;
    }
    m_isNothingWritten = m_isNothingWritten || isSumOfNothing(line);
    const QByteArrayView text = m_destination.withLinesBefore(line);
    if (isAboutDestination(text))
        add(text);
    else if (isOfAMuxer(line))
        add(line);
}

bool WriteErrors::isAboutDestination(QByteArrayView text) const
{
    return text == m_refusal
           || std::ranges::any_of(m_beginnings, [text](const QByteArray &beginning) {
                  return text.startsWith(beginning);
              });
}

void WriteErrors::add(QByteArrayView error)
{
    if (m_found.size() == keptErrors)
        m_found.removeFirst();
    m_found << error.toByteArray();
}

} // namespace quorvale
