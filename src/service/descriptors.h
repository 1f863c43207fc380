// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

namespace quorvale {

/// Throws std::system_error unless this process can open so many descriptors (files, pipes, …)
/// more. Who asks before beginning can say what is missing. Any thread.
void demandDescriptors(int count);

} // namespace quorvale
