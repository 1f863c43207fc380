// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>

namespace quorvale {

/// The names of the accepted videos, as patterns for file dialogs. They match upper and lower case
/// alike also where the desktop's dialog tells them apart.
QStringList videoNamePatterns();

/// The filter of Qt's file dialogs that shows the accepted videos alone, under the label "Videos".
QString videoNameFilter();

} // namespace quorvale
