// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "programrun.h"

#include "accessibilitybus.h"
#include "desktopenvironment.h"
#include "processtable.h"
#include "virtualdisplay.h"

#include <QTest>
#include <QUuid>

#include <csignal>

using namespace Qt::StringLiterals;

namespace quorvale::test {

ProgramRun::ProgramRun() : ProgramRun(QStringLiteral(QUORVALE_PROGRAM)) {}

ProgramRun::ProgramRun(const QString &executable)
    : m_executable(executable), m_environment(environmentWithoutDesktop(m_home.path()))
{
    const QString run = QUuid::createUuid().toString(QUuid::WithoutBraces);
    m_mark = "QUORVALE_TEST_RUN=" + run.toLatin1();
    set(u"QUORVALE_TEST_RUN"_s, run);
    // Where sanitizers are built in: plugins that Qt has unloaded by then leak, and a leak would
    // change the exit status.
    set(u"ASAN_OPTIONS"_s, u"detect_leaks=0"_s);
    m_process.setProcessChannelMode(QProcess::SeparateChannels);
    QObject::connect(&m_process, &QProcess::readyReadStandardError, &m_process,
                     [this] { m_standardError += m_process.readAllStandardError(); });
}

ProgramRun::~ProgramRun()
{
    for (const pid_t process : processes())
        ::kill(process, SIGKILL);
}

void ProgramRun::showOn(const VirtualDisplay &display)
{
    set(u"QT_QPA_PLATFORM"_s, u"xcb"_s);
    set(u"DISPLAY"_s, display.name());
}

void ProgramRun::speakOn(const AccessibilityBus &bus)
{
    set(u"DBUS_SESSION_BUS_ADDRESS"_s, bus.session().address());
    set(u"QT_LINUX_ACCESSIBILITY_ALWAYS_ON"_s, u"1"_s);
}

void ProgramRun::set(const QString &variable, const QString &value)
{
    m_environment.insert(variable, value);
}

void ProgramRun::unset(const QString &variable)
{
    m_environment.remove(variable);
}

bool ProgramRun::start()
{
    m_process.setProcessEnvironment(m_environment);
    m_process.start(m_executable, {});
    if (m_process.waitForStarted(-1))
        return true;
    qWarning("%s: %s", qPrintable(m_executable), qPrintable(m_process.errorString()));
    return false;
}

bool ProgramRun::waitForEnd(int milliseconds)
{
    return QTest::qWaitFor([this] { return !isRunning(); }, milliseconds);
}

QByteArray ProgramRun::complaints() const
{
    QByteArray complaints;
    for (const QByteArray &line : m_standardError.split('\n')) {
        const bool isRemark =
            line.startsWith("libEGL") || line.startsWith("libGL") || line.startsWith("MESA");
        if (!isRemark && !line.isEmpty())
            complaints += line + '\n';
    }
    return complaints;
}

QList<pid_t> ProgramRun::processes() const
{
    return processesWithEnvironment(m_mark);
}

} // namespace quorvale::test
