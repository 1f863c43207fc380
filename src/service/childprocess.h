// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "patience.h"

#include <QByteArrayList>
#include <QByteArrayView>

#include <functional>
#include <mutex>

class QProcess;

namespace quorvale {

/// One run of an external tool, started from its full path with a list of arguments and never
/// through a shell. Its standard input is this program's own.
class ChildProcess
{
public:
    /// Receives the bytes of a stream as they arrive. Must not throw.
    using Reader = std::function<void(QByteArrayView bytes)>;

    struct End
    {
        bool byUncaughtSignal = false;
        int exitStatus = 0; ///< meaningless after an uncaught signal
    };

    /// Of the tool at the path `executable`. Both are bytes, because names of files need not be
    /// text.
    ChildProcess(const QByteArray &executable, const QByteArrayList &arguments);

    /// Starts the tool, reads both streams until it has ended, and says how it ended. Blocks the
    /// calling thread, on which the readers are called too; not for the main thread. A stream
    /// without a reader goes to the null device. To be called once.
    ///
    /// Throws SystemError when the tool cannot be started, and FFmpegError::cancelled when
    /// `patience` ends first. Then the tool is killed, and what the system does not let go of at
    /// once is left to the event loops that the thread runs later.
    End run(const Reader &readOutput, const Reader &readError, const Patience &patience = {});

    /// Sends the tool one SIGINT. An interrupt that comes before the launch is delivered right
    /// after it; one that comes when the tool has ended does nothing. Any thread, never blocks.
    void interrupt();

private:
    const QByteArray m_executable;
    const QByteArrayList m_arguments;

    std::mutex m_mutex;
    QProcess *m_running = nullptr; // while the tool runs
    bool m_isInterruptPending = false;
};

} // namespace quorvale
