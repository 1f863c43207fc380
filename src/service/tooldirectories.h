// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>

namespace quorvale {

/// The directories in which the external tools are looked for, most preferred first, each with its
/// trailing slash. The program links the fixed list of fixedtooldirectories.cpp; whoever links
/// another definition instead decides otherwise. Thread-safe.
QStringList toolDirectories();

} // namespace quorvale
