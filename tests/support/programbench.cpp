// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "programbench.h"

#include "dragsource.h"
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
    DragSource source(display, display.environment(), paths);
    const auto sourceWindow = display.waitForWindow(u"Drag source"_s);
    return sourceWindow && display.activate(*sourceWindow)
           && source.drop(display.areaOf(*sourceWindow), display.areaOf(m_window.window()));
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
