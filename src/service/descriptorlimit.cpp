// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "descriptorlimit.h"

#include <QtGlobal>

#include <algorithm>
#include <climits>

namespace quorvale {

namespace {

std::optional<rlimit> limitOfStart;

} // namespace

void raiseDescriptorLimit()
{
    rlimit limit{};
    if (::getrlimit(RLIMIT_NOFILE, &limit) != 0)
        return;
    rlimit raised = limit;
#ifdef Q_OS_DARWIN
    // It refuses what is more, though it says that there is no limit.
    raised.rlim_cur = std::min<rlim_t>(limit.rlim_max, OPEN_MAX);
#else
    raised.rlim_cur = limit.rlim_max;
#endif
    if (raised.rlim_cur > limit.rlim_cur && ::setrlimit(RLIMIT_NOFILE, &raised) == 0)
        limitOfStart = limit;
}

std::optional<rlimit> descriptorLimitOfStart()
{
    return limitOfStart;
}

} // namespace quorvale
