// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "execution.h"

#include "descriptorlimit.h"
#include "toolenvironment.h"

#include <cerrno>
#include <new>

#include <sys/mman.h>
#include <unistd.h>

namespace quorvale {

Execution::Execution(const QByteArray &executable, const QByteArrayList &arguments)
    : m_words(QByteArrayList{executable} + arguments), m_environment(toolEnvironment()),
      m_descriptorLimit(descriptorLimitOfStart())
{
    for (QByteArray &word : m_words)
        m_vector.push_back(word.data());
    m_vector.push_back(nullptr);
    ::sigemptyset(&m_noSignals);
    void *const shared =
        ::mmap(nullptr, sizeof(int), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    m_error = shared == MAP_FAILED ? nullptr : new (shared) int(0);
}

Execution::~Execution()
{
    if (m_error)
        ::munmap(m_error, sizeof(int));
}

void Execution::perform()
{
    // The child may still share its parent's memory. No variable here has its address taken, so
    // that AddressSanitizer marks nothing of the stack and leaves no mark there.
    for (int signal = 1; signal < NSIG; ++signal)
        std::signal(signal, SIG_DFL);
    ::pthread_sigmask(SIG_SETMASK, &m_noSignals, nullptr);
    if (m_descriptorLimit)
        ::setrlimit(RLIMIT_NOFILE, &*m_descriptorLimit);
    ::execve(m_vector.front(), m_vector.data(), m_environment);
    if (m_error)
        *m_error = errno;
    constexpr int cannotExecute = 126; // as shells say it
    ::_exit(cannotExecute);
}

} // namespace quorvale
