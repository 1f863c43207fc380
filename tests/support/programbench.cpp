// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "programbench.h"

#include "patience.h"

#include <QDebug>
#include <QTest>

#include <csignal>

using namespace Qt::StringLiterals;

namespace quorvale::test {

ProgramBench::ProgramBench(const VirtualDesktop &desktop)
    : m_desktop(desktop), m_window(desktop, m_run)
{
    m_run.showOn(desktop);
}

ProgramBench::~ProgramBench()
{
    for (const pid_t process : m_run.processes())
        ::kill(process, SIGKILL);
    m_desktop.display().waitForNoWindow(u"Quorvale"_s, patience);
}

bool ProgramBench::drop(const QStringList &paths) const
{
    const VirtualDisplay &display = m_desktop.display();
    ChildOfTheTest source; // see tests/fakes/dragsource.cpp
    source.setProcessEnvironment(display.environment());
    source.setStandardErrorFile(QProcess::nullDevice());
    source.start(QStringLiteral(DRAG_SOURCE), paths);
    const auto sourceWindow = display.waitForWindow(u"Drag source"_s);
    if (!sourceWindow || !display.activate(*sourceWindow))
        return false;

    // Has the mouse move about the middle of the window until the source says so.
    QByteArray said;
    const auto moveUntil = [&](const QString &window, const char *awaited) {
        const QPoint middle = display.areaOf(window).center() - display.areaOf(window).topLeft();
        int step = 0;
        const auto hasSaid = [&] {
            display.xdotool({u"mousemove"_s, u"--window"_s, window,
                             QString::number(middle.x() + ++step % 20),
                             QString::number(middle.y())});
            said += source.readAllStandardOutput();
            return said.contains(awaited);
        };
        if (QTest::qWaitFor(hasSaid, patience))
            return true;
        qWarning("The drag never comes to \"%s\", but to: %s", awaited, said.constData());
        return false;
    };
    return moveUntil(*sourceWindow, "") && display.xdotool({u"mousedown"_s, u"1"_s})
           && moveUntil(*sourceWindow, "dragging") && moveUntil(m_window.window(), "action take")
           && display.xdotool({u"mouseup"_s, u"1"_s})
           && moveUntil(m_window.window(), "dropped take")
           && moveUntil(m_window.window(), "fetched");
}

bool ProgramBench::queue(const QStringList &paths) const
{
    QStringList rows = m_window.rowNames();
    for (const QString &path : paths) {
        rows << QFileInfo(path).fileName();
        if (!drop({path}) || !m_window.waitForRows(rows))
            return false;
    }
    return true;
}

QStringList ProgramBench::outputs(QDir::SortFlags order) const
{
    return QDir(m_outputs.path()).entryList(QDir::Files, order);
}

bool ProgramBench::waitForOutputs(const QStringList &names) const
{
    if (QTest::qWaitFor([&] { return outputs() == names && m_run.processes().size() == 1; },
                        patience))
        return true;
    qWarning() << "There are other outputs, or other processes than the program:" << outputs()
               << m_run.processes() << m_run.standardError();
    return false;
}

bool ProgramBench::waitForTool(const QByteArray &argument, pid_t &tool) const
{
    const auto isAtWork = [&] {
        for (const pid_t process : m_run.processes()) {
            if (process != m_run.id() && commandLine(process).contains(argument))
                tool = process;
        }
        return tool != 0;
    };
    if (QTest::qWaitFor(isAtWork, patience))
        return true;
    qWarning("No tool gets to work with %s.", argument.constData());
    return false;
}

} // namespace quorvale::test
