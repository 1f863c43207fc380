// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <chrono>
#include <stop_token>

namespace quorvale {

/// How long something that may never answer is waited for: until `cancelled` is requested, and then
/// `afterwards` longer. By default for good.
struct Patience
{
    std::stop_token cancelled;
    std::chrono::milliseconds afterwards{};
};

} // namespace quorvale
