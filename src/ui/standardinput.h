// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

namespace quorvale {

/// Replaces this process's standard input by the null device. The tools inherit it, and ffmpeg
/// reads commands from it ("q" ends a conversion half-way, with success) and changes the mode of a
/// terminal. To be called before the first tool is started.
void detachStandardInput();

} // namespace quorvale
