// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QList>
#include <QUrl>

namespace quorvale {

/// The files and folders that the words of a command line name, behind the program's own name: the
/// operands of the utility syntax guidelines of POSIX. No option is known, so words that begin with
/// a hyphen are left out up to the first "--", with that. Names are bytes; one that does not begin
/// with a slash belongs to `workingFolder`, whose path has no links in it, and is left out, with a
/// warning, where that is empty. ".." behind a name stays, as links decide where it leads. Looks at
/// no disk; any thread.
QList<QUrl> fileOperands(const QList<QByteArray> &words, const QByteArray &workingFolder);

/// The folder that the system has this process work in; empty when it is gone. Any thread.
QByteArray workingFolder();

} // namespace quorvale
