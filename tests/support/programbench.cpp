// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "programbench.h"
#include "patience.h"

#include "processtable.h"

#include <QDebug>
#include <QDir>
#include <QTest>

#include <csignal>

using namespace Qt::StringLiterals;

namespace quorvale::test {

ProgramBench::ProgramBench(const VirtualDesktop &desktop)
    : m_desktop(desktop), m_window(desktop, m_run)
{
    m_run.showOn(desktop.display());
    m_run.speakOn(desktop.accessibility());
    m_run.set(u"LC_ALL"_s, u"C.UTF-8"_s); // Qt remarks on locales of other encodings
}

ProgramBench::~ProgramBench()
{
    for (const pid_t process : m_run.processes())
        ::kill(process, SIGKILL);
    m_desktop.display().waitForNoWindow(u"Quorvale"_s, patience);
}

bool ProgramBench::start()
{
    return m_run.start() && m_window.find();
}

bool ProgramBench::drop(const QStringList &paths) const
{
    return MouseDrag(m_desktop.display()).dropFiles(paths, m_window.window())
           == MouseDrag::End::taken;
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

QStringList ProgramBench::outputs() const
{
    return QDir(m_outputs.path()).entryList(QDir::Files, QDir::Name);
}

QStringList ProgramBench::outputsByTime() const
{
    return QDir(m_outputs.path()).entryList(QDir::Files, QDir::Time | QDir::Reversed);
}

bool ProgramBench::waitForOutputs(const QStringList &names) const
{
    if (QTest::qWaitFor([&] { return outputs() == names && m_run.processes().size() == 1; },
                        2 * patience)) // for several conversions
        return true;
    qWarning() << outputs() << m_run.processes() << m_run.standardError();
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
    qWarning("No such tool gets to work.");
    return false;
}

} // namespace quorvale::test
