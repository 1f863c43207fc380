// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <functional>

class QWindow;

namespace quorvale {

/// Asks the desktop to let another program bring a window of its own to the front, for what the
/// user has just done in `window`, which may be null. `take` gets the token that is to be handed to
/// the other program (of the protocol xdg-activation of Wayland) within half a second, if `window`
/// lives as long; or an empty one, where the desktop gives none out. On X11, where none is needed,
/// that is at once. Main thread.
void askForActivationToken(QWindow *window, std::function<void(const QString &token)> take);

/// Brings `window` to the front by such a token, which another program was given for it; an empty
/// one tells the user that the window would like to be there. On Wayland; elsewhere that is false,
/// and nothing happens. Main thread.
bool useActivationToken(QWindow &window, const QString &token);

} // namespace quorvale
