// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

// A system that has no more to give: defines the C library's function that makes threads, so that
// it fails when a test says so. Linked into the test; see tests/support/scarcity.h.

#include "support/scarcity.h"

#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <limits>

#include <dlfcn.h>
#include <fcntl.h>
#include <pthread.h>

namespace {

constexpr int unlimited = std::numeric_limits<int>::max();

// Until one is refused; below zero there were so many refusals.
std::atomic<int> threadsLeft = unlimited;

// Whether this one can be had.
bool takeThread()
{
    return threadsLeft == unlimited || threadsLeft.fetch_sub(1) > 0;
}

} // namespace

extern "C" int pthread_create(pthread_t *thread, const pthread_attr_t *attributes,
                              void *(*routine)(void *), void *argument) noexcept
{
    using Create = int(pthread_t *, const pthread_attr_t *, void *(*)(void *), void *);
    static auto *const real = reinterpret_cast<Create *>(::dlsym(RTLD_NEXT, "pthread_create"));
    if (!real)
        std::abort();
    return takeThread() ? real(thread, attributes, routine, argument) : EAGAIN;
}

namespace quorvale::test {

FewThreads::FewThreads(int count)
{
    threadsLeft = count;
}

FewThreads::~FewThreads()
{
    threadsLeft = unlimited;
}

int FewThreads::refusals() const
{
    const int left = threadsLeft;
    return left < 0 ? -left : 0;
}

FewDescriptors::FewDescriptors(int count)
{
    if (::getrlimit(RLIMIT_NOFILE, &m_before) != 0)
        std::abort();
    // The limit is one of numbers, of which those in use do not count.
    rlimit limit = m_before;
    for (limit.rlim_cur = 0; limit.rlim_cur < m_before.rlim_cur; ++limit.rlim_cur) {
        const bool isFree = ::fcntl(static_cast<int>(limit.rlim_cur), F_GETFD) < 0;
        if (isFree && count-- == 0)
            break;
    }
    if (::setrlimit(RLIMIT_NOFILE, &limit) != 0)
        std::abort();
}

FewDescriptors::~FewDescriptors()
{
    ::setrlimit(RLIMIT_NOFILE, &m_before);
}

} // namespace quorvale::test
