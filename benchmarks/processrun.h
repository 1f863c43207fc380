// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QStringList>

namespace quorvale::bench {

/// What one run of a process cost, its children included. Seconds.
struct ProcessRun
{
    double wall = 0;
    double processor = 0;
    QByteArray output;
};

/// Runs the command, a full path and its arguments, to its end. Ends the program when it fails: a
/// figure of a failed run would mean nothing.
ProcessRun runProcess(const QStringList &command);

/// Runs one of this program's own tasks; see tasks.h.
ProcessRun runTask(const QStringList &task);

/// The command that does so.
QStringList taskCommand(const QStringList &task);

} // namespace quorvale::bench
