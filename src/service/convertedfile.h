// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "model/earlyend.h"

#include <QUrl>

#include <optional>

namespace quorvale {

/// What has become of a source that was converted.
struct ConvertedFile
{
    /// Where the output is, a file URL.
    QUrl url;

    /// Where the source ended, when it ended before what it announces; the output ends there, too.
    std::optional<EarlyEnd> earlyEnd;
};

} // namespace quorvale
