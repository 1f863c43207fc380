// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "filesizelimit.h"

#include <QtGlobal>

#include <csignal>

namespace quorvale::test {

FileSizeLimit::FileSizeLimit(rlim_t bytes)
{
    ::getrlimit(RLIMIT_FSIZE, &m_before);
    const rlimit limit{bytes, m_before.rlim_max};
    if (::setrlimit(RLIMIT_FSIZE, &limit) != 0)
        qFatal("Cannot limit the size of files");
    m_handler = std::signal(SIGXFSZ, SIG_IGN); // which would end the writer
}

FileSizeLimit::~FileSizeLimit()
{
    std::signal(SIGXFSZ, m_handler);
    ::setrlimit(RLIMIT_FSIZE, &m_before);
}

} // namespace quorvale::test
