// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QStringList>

namespace quorvale::test {

/// Lets the code under test, and runTool(), use the tools that are installed on the machine; they
/// get an empty standard input.
void useMachineTools();

/// What a finished run of one of the machine's own tools left behind.
struct ToolRun
{
    bool succeeded = false;
    QByteArray output;
    QByteArray errors;
};

/// Runs the `tool` of toolDirectories() to its end. Ends the test program when there is no such
/// tool, or when it crashes or does not end: without its tools a test must not pass.
ToolRun runTool(const QString &tool, const QStringList &arguments);

/// Runs ffmpeg, which replaces what it writes and says nothing but errors.
ToolRun runFFmpeg(const QStringList &arguments);

} // namespace quorvale::test
