// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QPalette>

namespace quorvale {

/// A dark or a light palette for what is drawn by Qt where the desktop has given it none that goes
/// with the desktop's settings: Qt's own dialogs, and the title bar that Qt draws on Wayland.
QPalette plainPalette(bool isDark);

} // namespace quorvale
