// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "writeerrors.h"

#include <algorithm>

namespace quorvale {

namespace {

constexpr qsizetype keptErrors = 8;

// As ffmpeg prints the text: it replaces control characters, but no white space.
QByteArray printed(QByteArray text)
{
    std::ranges::replace_if(
        text, [](unsigned char byte) { return byte < 0x08 || (byte > 0x0d && byte < 0x20); }, '?');
    return text;
}

bool isOfAMuxer(QByteArrayView line)
{
    if (!line.startsWith("[out#"))
        return false;
    const QByteArrayView words = line.sliced(line.indexOf("] ") + 1);
    return words.startsWith(" Error writing trailer: ")
           || words.startsWith(" Error closing file: ");
}

bool startsSecondPass(QByteArrayView line)
{
    return (line.startsWith("[mp4 @ ") || line.startsWith("[mov @ "))
           && line.endsWith(
               "] Starting second pass: moving the moov atom to the beginning of the file");
}

} // namespace

WriteErrors::WriteErrors(const QByteArray &destination)
    : m_beginnings{"Error writing trailer of " + printed(destination) + ": ",
                   "Error closing file " + printed(destination) + ": "},
      m_refusal("File '" + printed(destination) + "' already exists. Exiting."),
      m_height(destination.count('\n') + 1)
{
}

void WriteErrors::takeLine(QByteArrayView line)
{
    if (startsSecondPass(line))
        m_found.clear();
    if (m_height > 1) {
        if (m_lastLines.size() == m_height)
            m_lastLines.removeFirst();
        m_lastLines << line.toByteArray();
    }
    const QByteArray lines = m_lastLines.join('\n');
    const QByteArrayView text = m_height > 1 ? QByteArrayView(lines) : line;
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
