// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QScopeGuard>

#include <memory>
#include <mutex>
#include <stop_token>

namespace quorvale {

class ChildProcess;

/// The process of the conversion that runs now, for whoever cancels it. Any thread.
class ActiveProcess
{
public:
    /// Lets a cancel reach `process`, from before its launch, for as long as the result is kept.
    /// The latest one counts.
    [[nodiscard]] auto publish(const std::shared_ptr<ChildProcess> &process) noexcept
    {
        replace(process);
        return qScopeGuard([this] { replace(nullptr); });
    }

    /// Interrupts the process, if there is one, and tells who watches for it. Never blocks.
    void cancel();

    /// Says of the cancels from now on whether there was one.
    std::stop_token watchForCancel();

private:
    void replace(const std::shared_ptr<ChildProcess> &process) noexcept;

    std::mutex m_lock; // guards the two fields below, held for no more than that
    std::shared_ptr<ChildProcess> m_process;
    std::stop_source m_cancel;
};

} // namespace quorvale
