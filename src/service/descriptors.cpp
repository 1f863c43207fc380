// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "descriptors.h"

#include <QScopeGuard>

#include <cerrno>
#include <system_error>
#include <vector>

#include <fcntl.h>
#include <unistd.h>

namespace quorvale {

void demandDescriptors(int count)
{
    std::vector<int> opened;
    const auto closeAll = qScopeGuard([&opened] {
        for (const int descriptor : opened)
            ::close(descriptor);
    });
    for (int i = 0; i < count; ++i) {
        // NOLINTNEXTLINE(*-vararg): both functions are
        const int descriptor = opened.empty() ? ::open("/dev/null", O_RDONLY | O_CLOEXEC)
                                              : ::fcntl(opened.front(), F_DUPFD_CLOEXEC, 0);
        if (descriptor < 0)
            throw std::system_error(errno, std::generic_category());
        opened.push_back(descriptor);
    }
}

} // namespace quorvale
