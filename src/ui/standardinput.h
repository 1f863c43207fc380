// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

namespace quorvale {

/// Replaces this process's standard input by the null device when it is a terminal or closed. The
/// tools inherit it, and ffmpeg would otherwise read keys from the terminal ("q" ends it) and
/// change the terminal's mode. To be called before the first tool is started.
void detachStandardInputFromTerminal();

} // namespace quorvale
