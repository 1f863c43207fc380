// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QVariantMap>

class QWindow;

namespace quorvale {

/// Brings the window to the front, with the keyboard, as well as the desktop lets a program do that
/// to itself: with what `platformData`, of a call of org.freedesktop.Application, has from the one
/// who started the call. On X11 that is the time of the user's click; without it the window comes
/// to the front by itself. On Wayland it is a token, without which most desktops only say that the
/// window asks for attention. Main thread.
void bringToFront(QWindow &window, const QVariantMap &platformData);

/// Says to the desktop that the window is what the user has started this process for, with what
/// `platformData` has from the starter, so that it waits for no window any longer. On X11 Qt says
/// it. Main thread.
void claimStart(QWindow &window, const QVariantMap &platformData);

} // namespace quorvale
