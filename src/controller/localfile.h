// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QUrl>

#include <optional>

namespace quorvale {

/// `url` without its host when it names a file or folder of this machine, which "localhost" and the
/// machine's own name do as well as no host (RFC 8089, section 2); none for any other URL, and for
/// a path that no file can have. Any thread.
std::optional<QUrl> localFile(const QUrl &url);

} // namespace quorvale
