// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "childofthetest.h"

#include "patience.h"

#include <csignal>

#include <sys/prctl.h>

namespace quorvale::test {

namespace {

void dieWithTheTest()
{
    ::prctl(PR_SET_PDEATHSIG, SIGKILL); // NOLINT(cppcoreguidelines-pro-type-vararg)
}

} // namespace

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

void ChildOfTheTest::setPreparation(const std::function<void()> &preparation)
{
    setChildProcessModifier([preparation] {
        dieWithTheTest();
        preparation();
    });
}

} // namespace quorvale::test
