// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "controller/converterviewmodel.h"
#include "support/patience.h"

#include <QTest>

namespace quorvale::test {

/// Waits until everything that was asked for is found and queued; false when that takes too long.
[[nodiscard]] inline bool awaitSearches(ConverterViewModel &model)
{
    return QTest::qWaitFor([&] { return !model.searches()->hasThreads(); }, patience);
}

} // namespace quorvale::test
