// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

namespace quorvale::test {

/// Makes file permissions bind this thread, the threads that it starts and the tools that they run,
/// even where the superuser runs the test. For good. Ends the test program where that is not to be
/// had: without it a test of permissions proves nothing.
void letPermissionsBind();

} // namespace quorvale::test
