// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "printedpath.h"

#include <algorithm>

namespace quorvale {

PrintedPath::PrintedPath(QByteArray path)
    : m_text(std::move(path)), m_height(m_text.count('\n') + 1)
{
    std::ranges::replace_if(
        m_text, [](unsigned char byte) { return byte < 0x08 || (byte > 0x0d && byte < 0x20); },
        '?');
}

QByteArrayView PrintedPath::withLinesBefore(QByteArrayView line)
{
    if (m_height == 1)
        return line;
    if (m_lastLines.size() == m_height)
        m_lastLines.removeFirst();
    m_lastLines << line.toByteArray();
    m_joined = m_lastLines.join('\n');
    return m_joined;
}

} // namespace quorvale
