// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

namespace quorvale {

/// Puts right what this process has from whoever started it and cannot work with. To be called
/// before anything else.
///
/// The ends of children are heard of, which a launcher may have the process ignore; a conversion
/// that succeeded would pass for one that crashed. Standard output and error are open, or what is
/// opened next would take their place. Standard input is the null device: the tools inherit it, and
/// ffmpeg reads commands from it ("q" ends a conversion half-way, with success) and changes the
/// mode of a terminal. It may have as many descriptors as the system lets it ask for; what it
/// starts has the limit that it was started with itself.
void restoreProcessDefaults();

} // namespace quorvale
