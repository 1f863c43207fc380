// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

namespace quorvale {

/// The environment that tools are started with, as execve() takes it: the one that this process had
/// at the first call, but tools of ffmpeg are asked not to colour what they say. The first call
/// reads the environment, so it is to be made while there is one thread; later ones by any.
char *const *toolEnvironment();

} // namespace quorvale
