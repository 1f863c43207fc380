// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "processdefaults.h"

#include "service/descriptorlimit.h"

#include <csignal>

#include <fcntl.h>
#include <unistd.h>

namespace quorvale {

namespace {

void hearOfChildren()
{
    std::signal(SIGCHLD, SIG_DFL);
    sigset_t childSignal;
    ::sigemptyset(&childSignal);
    ::sigaddset(&childSignal, SIGCHLD);
    ::pthread_sigmask(SIG_UNBLOCK, &childSignal, nullptr);
}

void replaceStandardStreams()
{
    int null = -1;
    do                                      // takes the first descriptors that are free
        null = ::open("/dev/null", O_RDWR); // NOLINT(cppcoreguidelines-pro-type-vararg)
    while (null >= 0 && null <= STDERR_FILENO);
    if (null < 0)
        return;
    ::dup2(null, STDIN_FILENO);
    ::close(null);
}

} // namespace

void restoreProcessDefaults()
{
    hearOfChildren();
    replaceStandardStreams();
    raiseDescriptorLimit();
}

} // namespace quorvale
