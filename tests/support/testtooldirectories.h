// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>

namespace quorvale::test {

/// Decides where the code under test looks for its tools; nowhere until it is called.
void setToolDirectories(const QStringList &directories);

} // namespace quorvale::test
