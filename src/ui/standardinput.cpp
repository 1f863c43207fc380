// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "standardinput.h"

#include <fcntl.h>
#include <unistd.h>

namespace quorvale {

void detachStandardInput()
{
    const int null = ::open("/dev/null", O_RDONLY); // NOLINT(cppcoreguidelines-pro-type-vararg)
    if (null < 0 || null == STDIN_FILENO)
        return;
    ::dup2(null, STDIN_FILENO);
    ::close(null);
}

} // namespace quorvale
