// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace quorvale {

/// Where a source ended that announces more than it has, as one does that was copied by half.
struct EarlyEnd
{
    double reached = 0.0;  ///< in seconds; not above 0 where nothing was reached
    double duration = 0.0; ///< what it announces, in seconds, above what was reached

    friend bool operator==(const EarlyEnd &, const EarlyEnd &) = default;
};

/// What the user is told of it: "The source ends early: 0:06 of 0:20." From an hour on a time has
/// hours, "1:02:03". Of lengths that whole seconds do not tell apart, only that it ends early.
QString remark(const EarlyEnd &end);

} // namespace quorvale
