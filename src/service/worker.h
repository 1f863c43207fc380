// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <deque>
#include <functional>
#include <mutex>
#include <thread>

class QEventLoop;

namespace quorvale {

/// A thread with an event loop that does what it is given, one after another. It begins with the
/// first task. Any thread.
class Worker
{
public:
    Worker() = default;

    /// Waits until everything is done.
    ~Worker();

    Worker(const Worker &) = delete;
    Worker &operator=(const Worker &) = delete;

    /// Has the thread do `task`, which must not throw and may run event loops of its own. Throws
    /// std::system_error when a thread or a descriptor that it needs is not to be had; then the
    /// next call tries again.
    void post(std::function<void()> task);

private:
    void work();
    void wake();

    std::mutex m_lock; // guards all below but the thread's own loop
    std::deque<std::function<void()>> m_tasks;
    bool m_isEnding = false;
    QEventLoop *m_idleLoop = nullptr; // once the thread has one
    std::thread m_thread;
};

} // namespace quorvale
