// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

namespace quorvale::test {

/// How many milliseconds a test waits for what has to come, on however busy a machine. Less than a
/// stand-in waits for a test, so that a test says what it waits for before that ends.
inline constexpr int patience = 45'000;

} // namespace quorvale::test
