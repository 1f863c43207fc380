// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

namespace quorvale {

/// Has assistive technology read of every ProgressItem and FocusItem how much is done, worked out
/// when it asks. Qt 6.4 by itself tells no value of a progress bar, and a description that holds it
/// would be sent anew, and read out where the keyboard is, with every change. Once is enough, which
/// these items see to. Main thread only.
void offerAccessibleProgress();

} // namespace quorvale
