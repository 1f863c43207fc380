// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "model/sourcefile.h"

#include <QList>

namespace quorvale {

/// Sorts `files` by file name alone, as file managers do: upper and lower case alike, runs of
/// digits by their value, letters by the rules of the user's language. Equal names keep their
/// order.
void sortByName(QList<SourceFile> &files);

} // namespace quorvale
