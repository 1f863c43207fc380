// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "childofthetest.h"

#include <QTemporaryDir>

#include <optional>

#include <sys/types.h>

namespace quorvale::test {

class SlowDisk;
class VirtualDesktop;
class VirtualDisplay;
class WaylandDisplay;

/// One run of the program as it is built, or of a copy, in an environment of its own.
class ProgramRun
{
public:
    explicit ProgramRun(const QString &executable = QStringLiteral(QUORVALE_PROGRAM));

    /// Ends what is left of the run, its tools included.
    ~ProgramRun();

    ProgramRun(const ProgramRun &) = delete;
    ProgramRun &operator=(const ProgramRun &) = delete;

    /// Where it shows its window; on no platform in particular without these. To be called before
    /// start(), like the following.
    void showOn(const VirtualDisplay &display);
    /// The same, and where it finds the session's services and tells about its window.
    void showOn(const VirtualDesktop &desktop);
    /// As a program of a Wayland session, of which the desktop has the services.
    void showOn(const VirtualDesktop &desktop, const WaylandDisplay &display);
    void showNowhere() { set(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen")); }

    /// Makes it, and its tools, see the disk as slow as it is.
    void put(const SlowDisk &disk);

    void set(const QString &variable, const QString &value);
    ChildOfTheTest &process() { return m_process; }

    /// Starts it with these words on its command line. False, with a warning, when that fails.
    bool start(const QStringList &words = {});

    pid_t id() const { return static_cast<pid_t>(m_process.processId()); }
    bool isRunning() const { return m_process.state() == QProcess::Running; }

    /// Waits for the end. The exit status, or the number of the signal that ended it below zero;
    /// none when it does not end.
    std::optional<int> waitForEnd();

    QByteArray standardError() const { return m_standardError; }
    /// What it said on standard error, apart from the graphics drivers' remarks on the machine.
    QByteArray complaints() const;

    /// The processes of this run, its tools included, that are there now, even when it has ended.
    QList<pid_t> processes() const;

    /// Whether the program has the file, as a path or a part of one, in its memory, as it has code.
    bool hasMapped(const QByteArray &file) const;

private:
    void useServices(const VirtualDesktop &desktop);

    QTemporaryDir m_home;
    QString m_executable;
    QByteArray m_mark; // an entry of its environment, which its children inherit
    QProcessEnvironment m_environment;
    QByteArray m_standardError;
    ChildOfTheTest m_process;
};

/// The words of a process's command line; none when there is no such process.
QList<QByteArray> commandLine(pid_t process);

} // namespace quorvale::test
