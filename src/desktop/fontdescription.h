// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QFont>
#include <QString>

#include <optional>

namespace quorvale {

/// The font that GNOME's settings describe, as "Cantarell 11" or "Noto Sans Medium 10.5": a family,
/// words for its style, and a size in points or, with "px" behind it, in pixels (the string form of
/// PangoFontDescription). Nothing when there is no family or no size that a text can have, or when
/// it is longer than 1024 characters.
std::optional<QFont> describedFont(const QString &description);

} // namespace quorvale
