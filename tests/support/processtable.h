// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>

#include <sys/types.h>

namespace quorvale::test {

/// The running processes that were started with `entry`, "NAME=value", in their environment.
QList<pid_t> processesWithEnvironment(const QByteArray &entry);

/// The words of a process's command line; none when there is no such process.
QList<QByteArray> commandLine(pid_t process);

/// What the process has open at a file descriptor: a path or, for what has none, the kernel's name
/// of it; empty when it is closed.
QString openFile(pid_t process, int descriptor);

/// The files whose content, code above all, the process has in its memory, a line each with other
/// things; empty when there is no such process.
QByteArray mappedFiles(pid_t process);

/// How much processor time the process itself has taken, in seconds; none when there is no such
/// process.
std::optional<double> processorTime(pid_t process);

} // namespace quorvale::test
