// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "fatal.h"

#include <QtGlobal>

#include <csignal>
#include <cstdio>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace quorvale::test {

bool stopsTheProgram(const std::function<void()> &action)
{
    std::fflush(nullptr);
    const pid_t child = ::fork();
    if (child < 0)
        qFatal("Cannot fork");
    if (child == 0) {
        const rlimit noCore{0, 0};
        ::setrlimit(RLIMIT_CORE, &noCore);
        if (!std::freopen("/dev/null", "w", stderr) || !std::freopen("/dev/null", "w", stdout))
            ::_exit(1);
        std::signal(SIGABRT, SIG_DFL);
        qInstallMessageHandler(nullptr);
        action();
        ::_exit(0);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFSIGNALED(status) && WTERMSIG(status) == SIGABRT;
}

} // namespace quorvale::test
