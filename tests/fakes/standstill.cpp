// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

// The part of the disk's stand-in that notices when the main thread waits: as long as there is a
// rule (see slowdisk.cpp), it adds to the file "log" a line for
//
//   PROCESS turn MILLISECONDS   what the main thread waited for, other than processor time, between
//                               two turns of its event loop, when that is long
//
// What a thread waits for a processor or for a real disk, and what it works, does not count, so
// that it says the same on a busy machine. A turn lasts from one poll() to the next. Waiting for
// the X server's answer is a poll(), too; waiting for a lock, a thread, a process or a disk is
// none.

#undef _FORTIFY_SOURCE // which would define some of the functions already

#include "diskrule.h"

#include <cerrno>

#include <poll.h>
#include <sys/resource.h>

using namespace slowdisk;

namespace {

constexpr std::int64_t longTurn = 20 * million; // nanoseconds

// One turn of the main thread's event loop.
struct Turn
{
    std::int64_t begin = 0; // each in nanoseconds
    std::int64_t work = 0;
    std::int64_t waitForProcessor = 0;
    long waits = 0;     // how often it waited, other than for a processor
    long realReads = 0; // what it had to wait for the real disk for

    // With no beginning, when there is no descriptor to find it out with.
    static Turn atThisPoint()
    {
        Path text{};
        const long descriptor =
            ::syscall(SYS_openat, AT_FDCWD, "/proc/thread-self/schedstat", O_RDONLY | O_CLOEXEC, 0);
        if (descriptor < 0 && errno == EMFILE)
            return {};
        ::syscall(SYS_read, descriptor, text.data(), text.size() - 1);
        ::syscall(SYS_close, descriptor);
        long long work = 0;
        long long wait = 0;
        if (std::sscanf(text.data(), "%lld %lld", &work, &wait) != 2) {
            std::fputs("slowdisk: the system does not say what threads wait for\n", stderr);
            std::abort();
        }
        rusage usage{};
        ::getrusage(RUSAGE_THREAD, &usage);
        return {now(CLOCK_MONOTONIC), now(CLOCK_THREAD_CPUTIME_ID), wait, usage.ru_nvcsw,
                usage.ru_majflt + usage.ru_inblock};
    }
};

Turn turn; // the one that runs, of the main thread only

bool isWatched()
{
    Rule rule;
    return isMainThread() && readRule(rule);
}

void endTurn()
{
    if (turn.begin == 0)
        return;
    const Turn end = Turn::atThisPoint();
    // A thread that has not waited may still have stood still, when the machine is a virtual one.
    const bool isOfTheTest = end.waits != turn.waits && end.realReads == turn.realReads;
    const std::int64_t waited = (end.begin - turn.begin) - (end.work - turn.work)
                                - (end.waitForProcessor - turn.waitForProcessor);
    turn = {};
    if (waited >= longTurn && isOfTheTest)
        note("%d turn %lld\n", ::getpid(), static_cast<long long>(waited / million));
}

template <typename Poll>
int turnAround(const Poll &poll)
{
    const bool isMain = isMainThread();
    if (isMain)
        endTurn();
    const int count = poll();
    const int error = errno;
    if (isMain && isWatched())
        turn = Turn::atThisPoint();
    errno = error;
    return count;
}

} // namespace

extern "C" {

int poll(pollfd *descriptors, nfds_t count, int timeout)
{
    static auto *const real = next<int(pollfd *, nfds_t, int)>("poll");
    return turnAround([=] { return real(descriptors, count, timeout); });
}

int ppoll(pollfd *descriptors, nfds_t count, const timespec *timeout, const sigset_t *signals)
{
    static auto *const real =
        next<int(pollfd *, nfds_t, const timespec *, const sigset_t *)>("ppoll");
    return turnAround([=] { return real(descriptors, count, timeout, signals); });
}

int __poll_chk(pollfd *descriptors, nfds_t count, int timeout, size_t)
{
    return poll(descriptors, count, timeout);
}

int __ppoll_chk(pollfd *descriptors, nfds_t count, const timespec *timeout, const sigset_t *signals,
                size_t)
{
    return ppoll(descriptors, count, timeout, signals);
}

} // extern "C"
