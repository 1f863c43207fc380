// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ffmpegerror.h"

#include <chrono>
#include <condition_variable>
#include <future>
#include <memory>
#include <mutex>
#include <stop_token>
#include <thread>
#include <type_traits>

namespace quorvale {

/// The result of `look`, which may ask a disk that does not answer: once `cancelled` is requested,
/// the answer is waited for no longer than `patience`, and what is thrown is
/// FFmpegError::cancelled. Throws otherwise what `look` throws, and std::system_error when there is
/// no thread to be had.
///
/// `look` is called on a thread of its own, which then stays behind until the system lets it go, so
/// it must own what it uses. Blocks; any thread.
template <typename Look>
auto askDisk(const std::stop_token &cancelled, std::chrono::milliseconds patience, Look look)
{
    struct Question
    {
        std::packaged_task<std::invoke_result_t<Look>()> task;
        std::mutex lock;
        std::condition_variable_any answered;
        bool isAnswered = false; // guarded by the lock
    };
    const auto question = std::make_shared<Question>();
    question->task = std::packaged_task<std::invoke_result_t<Look>()>(std::move(look));
    auto answer = question->task.get_future();
    std::thread([question] {
        question->task();
        const std::scoped_lock guard(question->lock);
        question->isAnswered = true;
        question->answered.notify_all();
    }).detach();

    const auto isAnswered = [&] {
        return question->isAnswered;
    };
    std::unique_lock lock(question->lock);
    if (!question->answered.wait(lock, cancelled, isAnswered)
        && !question->answered.wait_for(lock, patience, isAnswered))
        throw FFmpegError::cancelled();
    return answer.get();
}

} // namespace quorvale
