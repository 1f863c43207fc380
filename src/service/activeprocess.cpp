// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "activeprocess.h"

#include "childprocess.h"

#include <utility>

namespace quorvale {

void ActiveProcess::replace(const std::shared_ptr<ChildProcess> &process) noexcept
{
    const std::scoped_lock guard(m_lock);
    m_process = process;
}

void ActiveProcess::cancel()
{
    // Of what stands behind the lock no more is done than to copy it.
    auto [process, cancel] = [this] {
        const std::scoped_lock guard(m_lock);
        return std::pair(m_process, m_cancel);
    }();
    cancel.request_stop();
    if (process)
        process->interrupt();
}

std::stop_token ActiveProcess::watchForCancel()
{
    const std::scoped_lock guard(m_lock);
    m_cancel = {};
    return m_cancel.get_token();
}

} // namespace quorvale
