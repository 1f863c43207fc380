// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "support/patience.h"
#include "support/testclass.h"
#include "ui/processdefaults.h"

#include "support/programrun.h"

#include <QTemporaryFile>
#include <QTest>

#include <array>
#include <csignal>
#include <filesystem>

#include <fcntl.h>
#include <pty.h>
#include <sys/ioctl.h>
#include <sys/resource.h>
#include <termios.h>
#include <unistd.h>

using namespace quorvale;
using namespace quorvale::test;
using namespace Qt::StringLiterals;

// What becomes of what the program is started with.
class ProcessDefaultsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aTerminalAsStandardInputIsReplaced()
    {
        int controller = -1;
        int terminal = -1; // without anybody in front of it
        QCOMPARE(::openpty(&controller, &terminal, nullptr, nullptr, nullptr), 0);
        const QString path = openFile(::getpid(), terminal);
        const QByteArray mode = modeOf(terminal);
        QVERIFY(!mode.isEmpty());

        ProgramRun run;
        run.showNowhere();
        run.process().setPreparation([descriptor = terminal] {
            ::setsid();
            ::ioctl(descriptor, TIOCSCTTY, 0); // NOLINT(cppcoreguidelines-pro-type-vararg)
            for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
                ::dup2(descriptor, stream);
        });
        QVERIFY(run.start());
        QTRY_COMPARE_WITH_TIMEOUT(openFile(run.id(), STDIN_FILENO), nullDevice, patience);
        QVERIFY(hasStarted(run));
        QCOMPARE(openFile(run.id(), STDIN_FILENO), nullDevice);
        QCOMPARE(openFile(run.id(), STDOUT_FILENO), path);
        QCOMPARE(openFile(run.id(), STDERR_FILENO), path);
        QCOMPARE(modeOf(terminal), mode);

        end(run);
        QCOMPARE(modeOf(terminal), mode);
        ::close(terminal);
        ::close(controller);
    }

    void closedStreamsAreReplaced()
    {
        ProgramRun run;
        run.showNowhere();
        run.process().setPreparation([] {
            for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
                ::close(stream);
        });
        QVERIFY(run.start());
        QTRY_COMPARE_WITH_TIMEOUT(openFile(run.id(), STDIN_FILENO), nullDevice, patience);
        QVERIFY(hasStarted(run));
        for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
            QCOMPARE(openFile(run.id(), stream), nullDevice);
        end(run);
    }

    void aFileAsStandardInputIsReplaced()
    {
        QTemporaryFile file;
        QVERIFY(file.open());
        ProgramRun run;
        run.showNowhere();
        run.process().setStandardInputFile(file.fileName());
        QVERIFY(run.start());
        QVERIFY(hasStarted(run));
        QCOMPARE(openFile(run.id(), STDIN_FILENO), nullDevice);
        end(run);
    }

    void aPipeAsStandardInputIsReplaced()
    {
        std::array<int, 2> pipe{};
        QCOMPARE(::pipe2(pipe.data(), O_CLOEXEC), 0);
        const QString name = openFile(::getpid(), pipe[0]);
        QVERIFY2(name.startsWith(u"pipe:"_s), qPrintable(name));
        ProgramRun run;
        run.showNowhere();
        run.process().setPreparation([end = pipe[0]] { ::dup2(end, STDIN_FILENO); });
        QVERIFY(run.start());
        QVERIFY(hasStarted(run));
        QCOMPARE(openFile(run.id(), STDIN_FILENO), nullDevice);
        end(run);
        ::close(pipe[0]);
        ::close(pipe[1]);
    }

    void theLimitOfDescriptorsIsRaised()
    {
        constexpr rlimit few{256, 4096};
        ProgramRun run;
        run.showNowhere();
        run.process().setPreparation([&few] { ::setrlimit(RLIMIT_NOFILE, &few); });
        QVERIFY(run.start());
        const auto limit = [&] {
            rlimit limit{};
            return ::prlimit(run.id(), RLIMIT_NOFILE, nullptr, &limit) == 0 ? limit.rlim_cur : 0;
        };
        QTRY_COMPARE_WITH_TIMEOUT(limit(), few.rlim_max, patience);
        QVERIFY(hasStarted(run));
        end(run);
    }

    void theEndsOfChildrenAreHeardOf()
    {
        sigset_t childSignal;
        ::sigemptyset(&childSignal);
        ::sigaddset(&childSignal, SIGCHLD);
        sigset_t before;
        ::pthread_sigmask(SIG_BLOCK, &childSignal, &before);
        const auto handler = std::signal(SIGCHLD, SIG_IGN);
        restoreProcessDefaults();
        sigset_t after;
        ::pthread_sigmask(SIG_SETMASK, &before, &after);
        const auto restored = std::signal(SIGCHLD, handler);
        QVERIFY(restored == SIG_DFL);
        QVERIFY(!::sigismember(&after, SIGCHLD));
    }

private:
    const QString nullDevice = u"/dev/null"_s;

    // What the process has open there: a path or, for what has none, the kernel's name of it; empty
    // when it is closed.
    static QString openFile(pid_t process, int descriptor)
    {
        const auto link = u"/proc/%1/fd/%2"_s.arg(process).arg(descriptor).toStdString();
        std::error_code isClosed;
        return QFile::decodeName(std::filesystem::read_symlink(link, isClosed).c_str());
    }

    // The settings of a terminal; empty when they cannot be read.
    static QByteArray modeOf(int terminal)
    {
        termios settings{};
        if (::tcgetattr(terminal, &settings) != 0)
            return {};
        return {reinterpret_cast<const char *>(&settings), sizeof settings};
    }

    // Waits until the program is past its beginning: it has loaded what its window needs.
    static bool hasStarted(const ProgramRun &run)
    {
        return QTest::qWaitFor([&] { return run.hasMapped("/QtQuick/"); }, patience);
    }

    static void end(ProgramRun &run)
    {
        QVERIFY(run.isRunning());
        QCOMPARE(::kill(run.id(), SIGTERM), 0);
        QCOMPARE(run.waitForEnd(), std::optional(-SIGTERM));
    }
};

QUORVALE_TEST(ProcessDefaultsTest)
#include "processdefaults_test.moc"
