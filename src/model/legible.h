// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace quorvale {

/// `text`, a name or a path, as it is shown in one line, so that what it is made of can neither cut
/// it off nor turn it round. Each line break, each other control character and each character that
/// orders a direction is U+FFFD; marks of direction, which nobody sees, are left out. Letters have
/// their own direction still, as the Unicode Bidirectional Algorithm (UAX #9) has it. For the eye
/// only: it is no longer the name of the file.
QString legible(QString text);

/// The same for a text whose lines stay lines.
QString legibleLines(const QString &text);

} // namespace quorvale
