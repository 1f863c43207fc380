// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "service/execution.h"

#include <QTest>

#include <cerrno>
#include <csignal>

#include <sys/wait.h>
#include <unistd.h>

using namespace quorvale;
using namespace Qt::StringLiterals;

namespace {

struct Outcome
{
    int error = 0;
    int exitStatus = -1; ///< -1 for a death by a signal
};

Outcome execute(const QString &executable, const QStringList &arguments)
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
        const QString script =
            u"[ $# = 3 ] && [ \"$1\" = 'a b' ] && [ -z \"$2\" ] && [ \"$3\" = '*\"é' ] || exit 9; exit 7"_s;
        const Outcome outcome =
            execute(u"/bin/sh"_s, {u"-c"_s, script, u"name"_s, u"a b"_s, u""_s, u"*\"é"_s});
        QCOMPARE(outcome.error, 0);
        QCOMPARE(outcome.exitStatus, 7);
    }

    void whatIsNotThereIsSaidSo() { QCOMPARE(execute(u"/no/such/tool"_s, {}).error, ENOENT); }

    void whatIsNoProgramIsSaidSo() { QCOMPARE(execute(u"/"_s, {}).error, EACCES); }

    void theSearchPathIsNotConsulted() { QCOMPARE(execute(u"sh"_s, {}).error, ENOENT); }

    void theProgramTakesInterrupts()
    {
        const auto handler = std::signal(SIGINT, SIG_IGN);
        const Outcome outcome = execute(u"/bin/sh"_s, {u"-c"_s, u"kill -s INT $$; exit 3"_s});
        std::signal(SIGINT, handler);
        QCOMPARE(outcome.exitStatus, -1);
    }
};

QTEST_APPLESS_MAIN(ExecutionTest)
#include "execution_test.moc"
