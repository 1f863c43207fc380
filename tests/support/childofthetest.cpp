// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "childofthetest.h"

#include "patience.h"

#include <csignal>

#include <sys/prctl.h>

using namespace Qt::StringLiterals;

namespace quorvale::test {

namespace {

void dieWithTheTest()
{
    ::prctl(PR_SET_PDEATHSIG, SIGKILL); // NOLINT(cppcoreguidelines-pro-type-vararg)
}

} // namespace

QProcessEnvironment environmentWithoutDesktop(const QString &home)
{
    auto environment = QProcessEnvironment::systemEnvironment();
    for (const QString &name : environment.keys()) {
        for (const auto prefix :
             {"QT_"_L1, "QML"_L1, "QSG_"_L1, "XDG_"_L1, "DBUS_"_L1, "GTK_"_L1, "KDE_"_L1,
              "DESKTOP_"_L1, "WAYLAND_"_L1, "DISPLAY"_L1, "SESSION_MANAGER"_L1, "XAUTHORITY"_L1}) {
            if (name.startsWith(prefix))
                environment.remove(name);
        }
    }
    environment.insert(u"HOME"_s, home);
    environment.insert(u"XDG_RUNTIME_DIR"_s, home);
    return environment;
}

ChildOfTheTest::ChildOfTheTest()
{
    setChildProcessModifier(dieWithTheTest);
    // Tools that read keys from their standard input shall find none.
    setStandardInputFile(nullDevice());
}

ChildOfTheTest::~ChildOfTheTest()
{
    if (state() != NotRunning) {
        kill();
        waitForFinished(-1);
    }
}

QByteArray ChildOfTheTest::startAndReadLine(const QString &program, const QStringList &arguments)
{
    start(program, arguments);
    while (!canReadLine()) {
        if (!waitForReadyRead(patience))
            qFatal("%s does not start: %s", qPrintable(program),
                   readAllStandardError().constData());
    }
    return readLine().trimmed();
}

std::optional<QByteArray> ChildOfTheTest::run(const QString &program, const QStringList &arguments)
{
    start(program, arguments);
    if (waitForFinished(patience) && exitStatus() == NormalExit && exitCode() == 0)
        return readAllStandardOutput();
    qWarning("%s %s: %s %s %s", qPrintable(program), qPrintable(arguments.join(u' ')),
             qPrintable(errorString()), readAllStandardOutput().constData(),
             readAllStandardError().constData());
    return std::nullopt;
}

void ChildOfTheTest::setPreparation(const std::function<void()> &preparation)
{
    setChildProcessModifier([preparation] {
        preparation();
        dieWithTheTest(); // last, because another user's process forgets it
    });
}

} // namespace quorvale::test
