// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "toolrun.h"

#include "service/ffmpegservice.h"
#include "service/tooldirectories.h"
#include "testtooldirectories.h"

#include <QProcess>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace quorvale::test {

void useMachineTools()
{
    setToolDirectories({u"/usr/bin/"_s});
    // The tools inherit it, and ffmpeg would take whatever comes in for commands.
    if (!std::freopen("/dev/null", "r", stdin))
        qFatal("Cannot open the null device");
}

ToolRun runTool(const QString &tool, const QStringList &arguments)
{
    const auto executable = FFmpegService::locateBinary(tool);
    if (!executable)
        qFatal("This test needs %s in one of: %s", qPrintable(tool),
               qPrintable(toolDirectories().join(u' ')));
    constexpr int longestRun = 60'000; // milliseconds
    QProcess process;
    process.start(executable->toLocalFile(), arguments, QIODevice::ReadOnly);
    if (!process.waitForFinished(longestRun) || process.exitStatus() != QProcess::NormalExit)
        qFatal("%s %s: %s", qPrintable(tool), qPrintable(arguments.join(u' ')),
               qPrintable(process.errorString()));
    return {process.exitCode() == 0, process.readAllStandardOutput(),
            process.readAllStandardError()};
}

ToolRun runFFmpeg(const QStringList &arguments)
{
    return runTool(u"ffmpeg"_s,
                   QStringList{u"-nostdin"_s, u"-y"_s, u"-v"_s, u"error"_s} + arguments);
}

} // namespace quorvale::test
