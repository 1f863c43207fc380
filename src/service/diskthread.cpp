// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "diskthread.h"

#include <condition_variable>
#include <mutex>
#include <thread>
#include <utility>

namespace quorvale {

struct DiskThread::Desk
{
    std::mutex lock;
    std::condition_variable_any changed;
    Question question; // until it is answered; guarded by the lock
    std::stop_source leftBehind;

    // What the thread does.
    void work()
    {
        const std::stop_token isLeftBehind = leftBehind.get_token();
        std::unique_lock guard(lock);
        while (changed.wait(guard, isLeftBehind, [this] { return question != nullptr; })) {
            guard.unlock();
            question(isLeftBehind);
            guard.lock();
            question = nullptr;
            changed.notify_all();
        }
    }
};

DiskThread::~DiskThread()
{
    leaveBehind();
}

bool DiskThread::isAnswered(Question question, const Patience &patience)
{
    if (!m_desk) {
        const auto desk = std::make_shared<Desk>();
        std::thread([desk] { desk->work(); }).detach();
        m_desk = desk;
    }
    Desk &desk = *m_desk;
    {
        std::unique_lock guard(desk.lock);
        desk.question = std::move(question);
        desk.changed.notify_all();
        const auto isAnswered = [&desk] {
            return !desk.question;
        };
        if (desk.changed.wait(guard, patience.cancelled, isAnswered)
            || desk.changed.wait_for(guard, patience.afterwards, isAnswered))
            return true;
    }
    leaveBehind();
    return false;
}

void DiskThread::leaveBehind()
{
    if (const auto desk = std::exchange(m_desk, nullptr))
        desk->leftBehind.request_stop();
}

} // namespace quorvale
