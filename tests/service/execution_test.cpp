// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "service/execution.h"

#include <QTest>

#include <cerrno>
#include <csignal>

#include <sys/wait.h>
#include <unistd.h>

using namespace quorvale;

namespace {

struct Outcome
{
    int error = 0;
    int exitStatus = -1; ///< -1 for a death by a signal
};

Outcome execute(const QByteArray &executable, const QByteArrayList &arguments)
{
    Execution execution(executable, arguments);
    const pid_t child = ::fork();
    if (child == 0)
        execution.perform();
    Outcome outcome;
    outcome.error = execution.error();
    int status = 0;
    ::waitpid(child, &status, 0);
    outcome.exitStatus = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return outcome;
}

} // namespace

class ExecutionTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aProgramGetsItsArgumentsAsTheyAre()
    {
        const QByteArray script =
            "[ $# = 3 ] && [ \"$1\" = 'a b' ] && [ -z \"$2\" ] && [ \"$3\" = '*\"\xe9' ] || exit 9; exit 7";
        const Outcome outcome = execute("/bin/sh", {"-c", script, "name", "a b", "", "*\"\xe9"});
        QCOMPARE(outcome.error, 0);
        QCOMPARE(outcome.exitStatus, 7);
    }

    void whatIsNotThereIsSaidSo() { QCOMPARE(execute("/no/such/tool", {}).error, ENOENT); }

    void whatIsNoProgramIsSaidSo() { QCOMPARE(execute("/", {}).error, EACCES); }

    void theSearchPathIsNotConsulted() { QCOMPARE(execute("sh", {}).error, ENOENT); }

    void theProgramTakesInterrupts()
    {
        const auto handler = std::signal(SIGINT, SIG_IGN);
        const Outcome outcome = execute("/bin/sh", {"-c", "kill -s INT $$; exit 3"});
        std::signal(SIGINT, handler);
        QCOMPARE(outcome.exitStatus, -1);
    }
};

QTEST_APPLESS_MAIN(ExecutionTest)
#include "execution_test.moc"
