// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

namespace quorvale {

/// While it lives, a fatal message, such as Qt's that it cannot reach a display, ends the program
/// with exit status 1 and advice on standard error instead of a crash. Only one at a time.
class DisplayAdvice
{
public:
    DisplayAdvice();
    ~DisplayAdvice();

    DisplayAdvice(const DisplayAdvice &) = delete;
    DisplayAdvice &operator=(const DisplayAdvice &) = delete;
};

} // namespace quorvale
