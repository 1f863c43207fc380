// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace quorvale {

/// The filter of file dialogs that shows the accepted videos alone, under the label "Videos". Its
/// patterns match upper and lower case alike also where the desktop's dialog tells them apart.
QString videoNameFilter();

} // namespace quorvale
