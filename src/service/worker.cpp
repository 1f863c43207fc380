// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "worker.h"

#include "descriptors.h"

#include <QEventLoop>

#include <utility>

namespace quorvale {

Worker::~Worker()
{
    {
        const std::scoped_lock guard(m_lock);
        m_isEnding = true;
        wake();
    }
    if (m_thread.joinable())
        m_thread.join();
}

void Worker::post(std::function<void()> task)
{
    const std::scoped_lock guard(m_lock);
    if (!m_thread.joinable()) {
        // Without one for its loop to be woken by, GLib would end the program; and others may take
        // some before the loop is made.
        constexpr int someMore = 16;
        demandDescriptors(someMore);
        m_thread = std::thread([this] { work(); });
    }
    m_tasks.push_back(std::move(task));
    wake();
}

// With the lock held. Comes to nothing while a task runs a loop, after which the tasks are looked
// at anyway.
void Worker::wake()
{
    if (m_idleLoop)
        QMetaObject::invokeMethod(m_idleLoop, &QEventLoop::quit, Qt::QueuedConnection);
}

void Worker::work()
{
    QEventLoop idle; // between two tasks, for what they have left behind
    std::unique_lock lock(m_lock);
    m_idleLoop = &idle;
    while (!m_tasks.empty() || !m_isEnding) {
        std::function<void()> next = [&idle] {
            idle.exec();
        };
        if (!m_tasks.empty()) {
            next = std::move(m_tasks.front());
            m_tasks.pop_front();
        }
        lock.unlock();
        next();
        lock.lock();
    }
    m_idleLoop = nullptr;
}

} // namespace quorvale
