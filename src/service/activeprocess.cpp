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
    std::stop_source cancel;
    {
        const std::scoped_lock guard(m_lock);
        process = m_process;
        cancel = m_cancel;
    }
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
