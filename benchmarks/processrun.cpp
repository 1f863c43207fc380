// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "processrun.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <cstdlib>
#include <vector>

#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

extern char **environ;

namespace quorvale::bench {

namespace {

double seconds(const timeval &time)
{
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

} // namespace

ProcessRun runProcess(const QStringList &command)
{
    std::vector<QByteArray> words;
    for (const QString &word : command)
        words.push_back(word.toLocal8Bit());
    std::vector<char *> arguments;
    for (QByteArray &word : words)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);

    int output[2];
    if (::pipe(output) != 0)
        qFatal("There is no pipe left");
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, output[1], STDOUT_FILENO);
    posix_spawn_file_actions_addclose(&actions, output[0]);
    posix_spawn_file_actions_addclose(&actions, output[1]);

    ProcessRun run;
    QElapsedTimer clock;
    clock.start();
    pid_t child = 0;
    if (::posix_spawn(&child, arguments[0], &actions, nullptr, arguments.data(), environ) != 0)
        qFatal("Cannot start %s", arguments[0]);
    posix_spawn_file_actions_destroy(&actions);
    ::close(output[1]);
    char buffer[4096];
    for (ssize_t count = 0; (count = ::read(output[0], buffer, sizeof buffer)) > 0;)
        run.output.append(buffer, count);
    ::close(output[0]);
    int status = 0;
    rusage usage{};
    if (::wait4(child, &status, 0, &usage) != child || !WIFEXITED(status)
        || WEXITSTATUS(status) != EXIT_SUCCESS)
        qFatal("%s failed", qPrintable(command.join(u' ')));
    run.wall = static_cast<double>(clock.nsecsElapsed()) / 1e9;
    run.processor = seconds(usage.ru_utime) + seconds(usage.ru_stime);
    return run;
}

QStringList taskCommand(const QStringList &task)
{
    return QStringList{QCoreApplication::applicationFilePath()} + task;
}

ProcessRun runTask(const QStringList &task)
{
    return runProcess(taskCommand(task));
}

} // namespace quorvale::bench
