// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>

#include <chrono>

namespace quorvale {

/// Whether the D-Bus message bus at `address`, a socket of this machine, hangs: it takes
/// connections, or keeps them waiting, but has not said a word when `patience` is over. Whoever
/// uses it by Qt then waits for ever. Where there is no bus, or one of another kind, the answer is
/// no. Any thread, which waits; needs no application.
bool isSilentBus(const QByteArray &address, std::chrono::milliseconds patience);

/// Makes this process, with the parts of Qt that use it unasked, do without the session bus when
/// that is silent. Costs about a millisecond where it is not. To be called before there is an
/// application or another thread.
void leaveSilentSessionBus(std::chrono::milliseconds patience = std::chrono::milliseconds(500));

} // namespace quorvale
