// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>

namespace quorvale::test {

/// Runs `action` in a copy of this process and says whether that aborted. For tests without
/// threads of their own.
bool stopsTheProgram(const std::function<void()> &action);

} // namespace quorvale::test
