// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "service/descriptorlimit.h"
#include "service/execution.h"
#include "service/toolenvironment.h"
#include "support/testclass.h"

#include <QTest>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <vector>

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
    int status = 0;
    ::waitpid(child, &status, 0);
    Outcome outcome;
    outcome.error = execution.error();
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
        const QByteArray script = "[ $# = 3 ] && [ \"$1\" = 'a b' ] && [ -z \"$2\" ] && [ \"$3\" = "
                                  "'*\"\xe9' ] || exit 9; exit 7";
        const Outcome outcome = execute("/bin/sh", {"-c", script, "name", "a b", "", "*\"\xe9"});
        QCOMPARE(outcome.error, 0);
        QCOMPARE(outcome.exitStatus, 7);
    }

    void aProgramGetsTheEnvironmentOfTheStartButIsToPrintNoColours()
    {
        (void)toolEnvironment();
        ::setenv("QUORVALE_TEST", "later", 1);
        const QByteArray script =
            "[ \"$PATH\" = \"$1\" ] && [ -z \"$QUORVALE_TEST\" ] && [ $AV_LOG_FORCE_NOCOLOR = 1 ]";
        const Outcome outcome = execute("/bin/sh", {"-c", script, "name", qgetenv("PATH")});
        ::unsetenv("QUORVALE_TEST");
        QCOMPARE(outcome.error, 0);
        QCOMPARE(outcome.exitStatus, 0);
    }

    void whatIsNotThereIsSaidSo()
    {
        const Outcome outcome = execute("/no/such/tool", {});
        QCOMPARE(outcome.error, ENOENT);
        QCOMPARE(outcome.exitStatus, 126); // by which it is known even without a pipe
    }

    void whatIsNoProgramIsSaidSo() { QCOMPARE(execute("/", {}).error, EACCES); }

    void theSearchPathIsNotConsulted() { QCOMPARE(execute("sh", {}).error, ENOENT); }

    void theProgramHasTheLimitOfDescriptorsOfTheStart()
    {
        const pid_t child = ::fork(); // because it cannot be undone
        if (child == 0) {
            const rlimit limit{64, 128};
            ::setrlimit(RLIMIT_NOFILE, &limit);
            raiseDescriptorLimit();
            Execution("/bin/sh", {"-c", "[ $(ulimit -Sn) = 64 ]"}).perform();
        }
        int status = -1;
        ::waitpid(child, &status, 0);
        QCOMPARE(status, EXIT_SUCCESS);
    }

    void theProgramTakesEverySignalAsByDefault()
    {
        sigset_t all;
        ::sigfillset(&all);
        sigset_t before;
        ::pthread_sigmask(SIG_SETMASK, &all, &before);
        std::vector<void (*)(int)> handlers;
        for (int signal = 1; signal < NSIG; ++signal)
            handlers.push_back(std::signal(signal, SIG_IGN));
        std::signal(SIGCHLD, SIG_DFL); // or nothing could be learnt of the child
        // The two sets of the process, as the kernel shows them.
        const Outcome outcome =
            execute("/bin/grep", {"-Eqx", "Sig(Blk|Ign):.*[1-9a-f].*", "/proc/self/status"});
        for (int signal = 1; signal < NSIG; ++signal)
            std::signal(signal, handlers[static_cast<std::size_t>(signal) - 1]);
        ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
        QCOMPARE(outcome.error, 0);
        QCOMPARE(outcome.exitStatus, 1); // there is no such line
    }
};

QUORVALE_TEST(ExecutionTest)
#include "execution_test.moc"
