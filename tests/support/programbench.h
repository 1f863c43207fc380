// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "mousedrag.h"
#include "programrun.h"
#include "virtualdesktop.h"
#include "windowdriver.h"

#include <QStringList>
#include <QTemporaryDir>

namespace quorvale::test {

/// A run of the program on the desktop, and a folder for its outputs.
class ProgramBench
{
public:
    explicit ProgramBench(const VirtualDesktop &desktop);

    /// Ends the program, its tools included, and waits until its window has gone.
    ~ProgramBench();

    ProgramBench(const ProgramBench &) = delete;
    ProgramBench &operator=(const ProgramBench &) = delete;

    /// Starts the program and finds its window. False, with a warning, when that fails.
    bool start();

    ProgramRun &run() { return m_run; }
    const WindowDriver &window() const { return m_window; }
    QString outputFolder() const { return m_outputs.path(); }
    QString output(const QString &name) const { return m_outputs.filePath(name); }

    /// Drops files and folders, by their paths or encoded URLs, on the window. False when it does
    /// not take them.
    bool drop(const QStringList &paths) const;

    /// Drops the files one after the other, so that the rows are in this order.
    bool queue(const QStringList &paths) const;

    /// The names of the files in the output folder, by name.
    QStringList outputs() const;
    /// The same, by the time when they were finished.
    QStringList outputsByTime() const;

    /// Waits until the output folder has exactly these files and no tool is at work any more.
    bool waitForOutputs(const QStringList &names) const;

    /// Waits until a tool is at work that has the text among its arguments.
    bool waitForTool(const QByteArray &argument, pid_t &tool) const;

private:
    const VirtualDesktop &m_desktop;
    QTemporaryDir m_outputs;
    ProgramRun m_run;
    WindowDriver m_window;
};

} // namespace quorvale::test
