// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ffmpegerror.h"
#include "patience.h"

#include <functional>
#include <future>
#include <memory>
#include <stop_token>
#include <type_traits>

namespace quorvale {

/// Asks disks, which may not answer, on a thread that is kept for the next question, or is left
/// behind with the one that nobody waits for any longer. For one thread at a time.
class DiskThread
{
public:
    DiskThread() = default;

    /// Waits for nothing: a thread that still asks ends by itself.
    ~DiskThread();

    DiskThread(const DiskThread &) = delete;
    DiskThread &operator=(const DiskThread &) = delete;

    /// The result of `look`. Throws what it throws, FFmpegError::cancelled when `patience` ends
    /// first, and std::system_error when there is no thread to be had. Blocks.
    ///
    /// `look` is called with a token by which it is told that it was given up, and is then to ask
    /// nothing further. It may outlive this call, so it must own what it uses.
    template <typename Look>
    auto ask(const Patience &patience, Look look)
    {
        using Answer = std::invoke_result_t<Look, const std::stop_token &>;
        const auto task =
            std::make_shared<std::packaged_task<Answer(const std::stop_token &)>>(std::move(look));
        auto answer = task->get_future();
        if (!isAnswered([task](const std::stop_token &givenUp) { (*task)(givenUp); }, patience))
            throw FFmpegError::cancelled();
        return answer.get();
    }

private:
    using Question = std::function<void(const std::stop_token &givenUp)>;
    struct Desk;

    bool isAnswered(Question question, const Patience &patience);
    void leaveBehind();

    std::shared_ptr<Desk> m_desk; // shared with the thread, when there is one
};

} // namespace quorvale
