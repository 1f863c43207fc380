// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

namespace quorvale {

/// Has the frames and title bars that Qt itself draws round the program's windows, as on Wayland
/// desktops that leave that to programs, take on the application's palette. Qt 6.4 takes the one
/// that there is when a window is made. Main thread.
void renewFrames();

} // namespace quorvale
