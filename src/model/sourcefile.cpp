// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "sourcefile.h"

#include "filepath.h"

namespace quorvale {

SourceFile::SourceFile(const QUrl &url) : m_path(filePath(url))
{
    if (url != fileUrl(m_path))
        m_url = url;
}

QUrl SourceFile::url() const
{
    return m_url.isEmpty() ? fileUrl(m_path) : m_url;
}

} // namespace quorvale
