// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QUrl>

namespace quorvale {

/// Keeps the tools from waiting for good for somebody at the other end of a source. Any thread.
///
/// Throws SystemError when `source`, or what it links to, is a named pipe, a socket or a device.
void refuseSpecialFile(const QUrl &source);

} // namespace quorvale
