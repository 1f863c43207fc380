// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>

#include <sys/resource.h>

namespace quorvale {

/// Lets this process have as many descriptors as the system lets it ask for: few systems give more
/// than 1024 unasked (256 on macOS), and a long batch with searches beside it can need them. Where
/// that is refused it stays as it is. To be called once, before there is another thread.
void raiseDescriptorLimit();

/// The limit (RLIMIT_NOFILE) that this process was started with, which is for the programs that it
/// starts: some take a high one for what they may use, or cannot work with descriptors beyond 1024
/// (select). Nothing when it was not raised. Any thread.
std::optional<rlimit> descriptorLimitOfStart();

} // namespace quorvale
