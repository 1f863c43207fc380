// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "programrun.h"
#include "virtualdesktop.h"
#include "windowdriver.h"

#include <QDir>
#include <QStringList>
#include <QTemporaryDir>

namespace quorvale::test {

/// A run of the program on the desktop, and a folder for its outputs. What returns a bool returns
/// false, with a warning, when it fails.
class ProgramBench
{
public:
    explicit ProgramBench(const VirtualDesktop &desktop);

    /// Ends the program, its tools included, and waits until its window has gone.
    ~ProgramBench();

    ProgramBench(const ProgramBench &) = delete;
    ProgramBench &operator=(const ProgramBench &) = delete;

    /// Starts the program and finds its window.
    bool start() { return m_run.start() && m_window.find(); }

    ProgramRun &run() { return m_run; }
    const WindowDriver &window() const { return m_window; }
    QString outputFolder() const { return m_outputs.path(); }
    QString output(const QString &name) const { return m_outputs.filePath(name); }

    /// Drags files and folders, by their paths or encoded URLs, from another program and drops them
    /// on the window, which is to take them.
    bool drop(const QStringList &paths) const;

    /// Drops the files one after the other, so that the rows are in this order.
    bool queue(const QStringList &paths) const;

    /// The names of the files in the output folder, in the order of the names or of the times when
    /// they were finished.
    QStringList outputs(QDir::SortFlags order = QDir::Name) const;

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
