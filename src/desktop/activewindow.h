// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

class QWindow;

namespace quorvale {

/// The window of the program that a panel belongs to: the one that the user works in, else any that
/// is visible, else null. Main thread only.
QWindow *activeWindow();

} // namespace quorvale
