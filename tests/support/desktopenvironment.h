// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QProcessEnvironment>
#include <QString>

namespace quorvale::test {

/// This process's environment without what the desktop around it says, so that a program started
/// with it neither finds that desktop nor follows its taste, with `home` as the home folder.
QProcessEnvironment environmentWithoutDesktop(const QString &home);

} // namespace quorvale::test
