// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdlib>

/// Ends the fuzzer, which then keeps the input, when what always has to be true is not.
inline void require(bool isTrue)
{
    if (!isTrue)
        std::abort();
}
