// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "activeprocess.h"

#include "childprocess.h"

namespace quorvale {

void ActiveProcess::replace(const std::shared_ptr<ChildProcess> &process) noexcept
{
    const std::scoped_lock guard(m_lock);
    m_process = process;
}

void ActiveProcess::cancel()
{
    std::shared_ptr<ChildProcess> process;
    {
        const std::scoped_lock guard(m_lock);
        m_wasCancelled = true;
        process = m_process;
    }
    if (process)
        process->interrupt();
}

bool ActiveProcess::wasCancelled() const
{
    const std::scoped_lock guard(m_lock);
    return m_wasCancelled;
}

void ActiveProcess::forgetCancel()
{
    const std::scoped_lock guard(m_lock);
    m_wasCancelled = false;
}

} // namespace quorvale
