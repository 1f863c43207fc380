// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "execution.h"

#include <QFile>

#include <cerrno>
#include <csignal>
#include <tuple>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace quorvale {

namespace {

void close(int &descriptor)
{
    if (descriptor >= 0)
        ::close(std::exchange(descriptor, -1));
}

} // namespace

Execution::Execution(const QString &executable, const QStringList &arguments)
{
    m_words << QFile::encodeName(executable);
    for (const QString &argument : arguments)
        m_words << QFile::encodeName(argument);
    for (QByteArray &word : m_words)
        m_vector.push_back(word.data());
    m_vector.push_back(nullptr);
    // Without a pipe a failure is only seen by the child's exit status.
    std::ignore = ::pipe2(m_errorPipe, O_CLOEXEC);
}

Execution::~Execution()
{
    close(m_errorPipe[0]);
    close(m_errorPipe[1]);
}

void Execution::perform()
{
    std::signal(SIGINT, SIG_DFL);
    ::execv(m_vector.front(), m_vector.data());
    const int error = errno;
    std::ignore = ::write(m_errorPipe[1], &error, sizeof error);
    constexpr int cannotExecute = 126; // as shells say it
    ::_exit(cannotExecute);
}

int Execution::error()
{
    // The child's end is closed by the program's start or by the child's end.
    close(m_errorPipe[1]);
    int error = 0;
    ssize_t count = 0;
    do
        count = ::read(m_errorPipe[0], &error, sizeof error);
    while (count < 0 && errno == EINTR);
    return count == sizeof error ? error : 0;
}

} // namespace quorvale
