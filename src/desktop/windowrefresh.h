// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

namespace quorvale {

// What Qt 6.4 does not do for the program's windows when the desktop changes. Main thread.

/// Has the frames and title bars that Qt itself draws, as on Wayland desktops that leave that to
/// programs, take on the application's palette. Qt takes the one that there is when a window is
/// made.
void refreshFrames();

/// Tells the windows how large they are. When the resolution of an X11 screen changes, and with it
/// how many pixels a logical one has, Qt takes them for larger or smaller without saying so, and
/// they draw what fits into another size.
void refreshSizes();

} // namespace quorvale
