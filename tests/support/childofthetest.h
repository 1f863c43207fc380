// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QProcess>

#include <functional>
#include <optional>

namespace quorvale::test {

/// This process's environment without what the desktop around it says, so that a program started
/// with it neither finds that desktop nor follows its taste, with `home` as the home folder.
QProcessEnvironment environmentWithoutDesktop(const QString &home);

/// A process that never outlives the test, not even one that crashes: ended, and waited for, with
/// this object.
class ChildOfTheTest : public QProcess
{
public:
    ChildOfTheTest();
    ~ChildOfTheTest() override;

    /// Starts the program and waits for the first line that it says, which it returns. Ends the
    /// test when there is none.
    QByteArray startAndReadLine(const QString &program, const QStringList &arguments);

    /// Starts the program and waits for its end. What it says; none, with a warning, when it fails.
    std::optional<QByteArray> run(const QString &program, const QStringList &arguments);

    /// Has the child do this, too, just before it becomes the program. Only calls that are safe
    /// between fork and exec.
    void setPreparation(const std::function<void()> &preparation);
};

} // namespace quorvale::test
