// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "programrun.h"

#include "patience.h"
#include "slowdisk.h"
#include "virtualdesktop.h"
#include "waylanddisplay.h"

#include <QDir>
#include <QFile>
#include <QTest>
#include <QUuid>

#include <csignal>

using namespace Qt::StringLiterals;

namespace quorvale::test {

namespace {

// What the kernel tells of the process; nothing when it is gone.
QByteArray told(pid_t process, const QString &file)
{
    QFile answer(u"/proc/%1/%2"_s.arg(process).arg(file));
    return answer.open(QIODevice::ReadOnly) ? answer.readAll() : QByteArray();
}

} // namespace

ProgramRun::ProgramRun(const QString &executable)
    : m_executable(executable), m_environment(environmentWithoutDesktop(m_home.path()))
{
    const QString run = QUuid::createUuid().toString(QUuid::WithoutBraces);
    m_mark = "QUORVALE_TEST_RUN=" + run.toLatin1();
    set(u"QUORVALE_TEST_RUN"_s, run);
    set(u"LC_ALL"_s, u"C.UTF-8"_s); // Qt remarks on locales of other encodings
    // Where sanitizers are built in: plugins that Qt has unloaded by then leak, and a leak would
    // change the exit status.
    set(u"ASAN_OPTIONS"_s, u"detect_leaks=0"_s);
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

void ProgramRun::showOn(const VirtualDesktop &desktop)
{
    showOn(desktop.display());
    useServices(desktop);
}

void ProgramRun::showOn(const VirtualDesktop &desktop, const WaylandDisplay &display)
{
    set(u"XDG_SESSION_TYPE"_s, u"wayland"_s);
    set(u"WAYLAND_DISPLAY"_s, display.name());
    useServices(desktop);
}

void ProgramRun::useServices(const VirtualDesktop &desktop)
{
    set(u"DBUS_SESSION_BUS_ADDRESS"_s, desktop.session().address());
    set(u"QT_LINUX_ACCESSIBILITY_ALWAYS_ON"_s, u"1"_s);
}

void ProgramRun::put(const SlowDisk &disk)
{
    set(u"LD_PRELOAD"_s, QStringLiteral(SLOW_DISK));
    set(QString::fromLatin1(SlowDisk::variable), disk.steering());
}

void ProgramRun::set(const QString &variable, const QString &value)
{
    m_environment.insert(variable, value);
}

bool ProgramRun::start(const QStringList &words)
{
    m_process.setProcessEnvironment(m_environment);
    m_process.start(m_executable, words);
    if (m_process.waitForStarted(-1))
        return true;
    qWarning("%s: %s", qPrintable(m_executable), qPrintable(m_process.errorString()));
    return false;
}

std::optional<int> ProgramRun::waitForEnd()
{
    if (!QTest::qWaitFor([this] { return !isRunning(); }, patience)) {
        qWarning("The program does not end.");
        return std::nullopt;
    }
    const bool isBySignal = m_process.exitStatus() == QProcess::CrashExit;
    return isBySignal ? -m_process.exitCode() : m_process.exitCode();
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
    QList<pid_t> found;
    for (const QString &name : QDir(u"/proc"_s).entryList(QDir::Dirs)) {
        const pid_t process = name.toInt();
        if (process > 0 && told(process, u"environ"_s).split('\0').contains(m_mark))
            found << process;
    }
    return found;
}

bool ProgramRun::hasMapped(const QByteArray &file) const
{
    return told(id(), u"maps"_s).contains(file);
}

QList<QByteArray> commandLine(pid_t process)
{
    QList<QByteArray> words = told(process, u"cmdline"_s).split('\0');
    words.removeLast(); // behind the last NUL
    return words;
}

} // namespace quorvale::test
