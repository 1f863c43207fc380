// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

namespace quorvale::test {

/// How many milliseconds a test waits for what has to come, on however busy a machine.
inline constexpr int patience = 60'000;

} // namespace quorvale::test
