// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArrayList>

#include <optional>
#include <vector>

#include <csignal>

#include <sys/resource.h>

namespace quorvale {

/// Turns a child process that was just forked into a program with toolEnvironment(). QProcess could
/// do it, but would make texts of the arguments, and up to 6.4 at least it loses a descriptor
/// whenever that fails.
class Execution
{
public:
    /// Of the program at the path `executable`.
    Execution(const QByteArray &executable, const QByteArrayList &arguments);
    ~Execution();

    Execution(const Execution &) = delete;
    Execution &operator=(const Execution &) = delete;

    /// For the child, in which it does not return and calls only what is safe there. The program
    /// takes signals as by default, even where this one was started so that it ignores or blocks
    /// some, as shells and session launchers do with what they start. It may open as many
    /// descriptors as this one at its start.
    [[noreturn]] void perform();

    /// For the parent, when the child runs the program or has ended: why the program could not be
    /// executed, as an errno value; 0 when it was.
    int error() const { return m_error ? *m_error : 0; }

private:
    QByteArrayList m_words;
    std::vector<char *> m_vector; // of the words, ending in a null
    char *const *m_environment;
    sigset_t m_noSignals; // blocked
    const std::optional<rlimit> m_descriptorLimit;
    int *m_error; // in memory that parent and child share; without it the exit status has to do
};

} // namespace quorvale
