// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QUrl>

namespace quorvale {

/// Keeps a source from being replaced by its own conversion, of which nothing would be left. Any
/// thread.
///
/// Throws SystemError when the files `source` and `output` are one and the same, whatever links
/// lead to them.
void guardSource(const QUrl &source, const QUrl &output);

} // namespace quorvale
