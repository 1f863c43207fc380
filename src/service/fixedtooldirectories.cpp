// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "tooldirectories.h"

using namespace Qt::StringLiterals;

namespace quorvale {

QStringList toolDirectories()
{
    return {u"/opt/homebrew/bin/"_s, u"/usr/local/bin/"_s, u"/usr/bin/"_s};
}

} // namespace quorvale
