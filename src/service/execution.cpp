// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "execution.h"

#include <cerrno>
#include <tuple>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

extern char **environ; // which POSIX has the program declare

namespace quorvale {

namespace {

void close(int &descriptor)
{
    if (descriptor >= 0)
        ::close(std::exchange(descriptor, -1));
}

} // namespace

Execution::Execution(const QByteArray &executable, const QByteArrayList &arguments)
    : m_words(QByteArrayList{executable} + arguments)
{
    for (QByteArray &word : m_words)
        m_vector.push_back(word.data());
    m_vector.push_back(nullptr);
    // Where the environment asks for colours, lines would begin with codes for them.
    static char plainMessages[] = "AV_LOG_FORCE_NOCOLOR=1";
    for (char **entry = ::environ; *entry; ++entry)
        m_environment.push_back(*entry);
    m_environment.insert(m_environment.end(), {plainMessages, nullptr});
    ::sigemptyset(&m_noSignals);
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
    // The child may still share its parent's memory. No variable here has its address taken, so
    // that AddressSanitizer marks nothing of the stack and leaves no mark there.
    for (int signal = 1; signal < NSIG; ++signal)
        std::signal(signal, SIG_DFL);
    ::pthread_sigmask(SIG_SETMASK, &m_noSignals, nullptr);
    ::execve(m_vector.front(), m_vector.data(), m_environment.data());
    m_error = errno;
    [[maybe_unused]] const ssize_t count = ::write(m_errorPipe[1], &m_error, sizeof m_error);
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
