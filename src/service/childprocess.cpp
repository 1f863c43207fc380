// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "childprocess.h"

#include "execution.h"
#include "ffmpegerror.h"
#include "model/filepath.h"
#include "systemerror.h"

#include <QEventLoop>
#include <QProcess>
#include <QScopeGuard>
#include <QTimer>

#include <csignal>
#include <memory>
#include <stop_token>
#include <system_error>

using namespace Qt::StringLiterals;

namespace quorvale {

namespace {

// Only ever called on the thread that also reaps the child, so the process id cannot have been
// given to somebody else meanwhile: until it is reaped it is the child's, afterwards it reads 0.
void sendInterrupt(const QProcess &process)
{
    if (const qint64 id = process.processId(); id > 0)
        ::kill(static_cast<pid_t>(id), SIGINT);
}

// Destroyed while the tool runs, the object would wait for it, which may hang in the system.
void abandon(std::unique_ptr<QProcess> process)
{
    process->disconnect();
    process->kill();
    QObject::connect(process.get(), &QProcess::finished, process.get(), &QObject::deleteLater);
    (void)process.release();
}

} // namespace

ChildProcess::ChildProcess(const QByteArray &executable, const QByteArrayList &arguments)
    : m_executable(executable), m_arguments(arguments)
{
}

ChildProcess::End ChildProcess::run(const Reader &readOutput, const Reader &readError,
                                    const Patience &patience)
{
    auto owner = std::make_unique<QProcess>();
    QProcess &process = *owner;
    process.setInputChannelMode(QProcess::ForwardedInputChannel);
    if (readOutput) {
        QObject::connect(&process, &QProcess::readyReadStandardOutput, &process,
                         [&] { readOutput(process.readAllStandardOutput()); });
    } else {
        process.setStandardOutputFile(QProcess::nullDevice());
    }
    if (readError) {
        QObject::connect(&process, &QProcess::readyReadStandardError, &process,
                         [&] { readError(process.readAllStandardError()); });
    } else {
        process.setStandardErrorFile(QProcess::nullDevice());
    }
    QEventLoop untilEnd;
    QObject::connect(&process, &QProcess::finished, &untilEnd, &QEventLoop::quit);

    const auto cannotStart = [this](const QString &reason) {
        return SystemError(u"“%1” could not be started: %2"_s.arg(shownPath(m_executable), reason));
    };
    Execution execution(m_executable, m_arguments);
    // The execution knows program and arguments itself, and as bytes.
    process.setChildProcessModifier([&execution] { execution.perform(); });
    process.start(shownPath(m_executable), {}, QIODevice::ReadOnly);
    // Which also tells that the execution has succeeded or ended its child.
    if (!process.waitForStarted(-1))
        throw cannotStart(process.errorString());
    if (const int error = execution.error()) {
        process.waitForFinished(-1);
        throw cannotStart(QString::fromLocal8Bit(std::generic_category().message(error)));
    }

    {
        const std::scoped_lock guard(m_mutex);
        m_running = &process;
        if (m_isInterruptPending)
            sendInterrupt(process);
    }
    const auto forgetProcess = qScopeGuard([this] {
        const std::scoped_lock guard(m_mutex);
        m_running = nullptr;
    });

    const auto beginToGiveUp = [&] {
        QTimer::singleShot(patience.afterwards, &untilEnd, &QEventLoop::quit);
    };
    const std::stop_callback onCancel(patience.cancelled, [&] {
        QMetaObject::invokeMethod(&untilEnd, beginToGiveUp, Qt::QueuedConnection);
    });
    if (process.state() != QProcess::NotRunning)
        untilEnd.exec();
    if (process.state() != QProcess::NotRunning) {
        abandon(std::move(owner));
        throw FFmpegError::cancelled();
    }
    return {process.exitStatus() == QProcess::CrashExit, process.exitCode()};
}

void ChildProcess::interrupt()
{
    const std::scoped_lock guard(m_mutex);
    if (QProcess *process = m_running)
        QMetaObject::invokeMethod(
            process, [process] { sendInterrupt(*process); }, Qt::QueuedConnection);
    else
        m_isInterruptPending = true;
}

} // namespace quorvale
