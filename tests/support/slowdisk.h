// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <chrono>

#include <sys/types.h>

namespace quorvale::test {

/// A folder that stands for a disk, which takes its time as it is told to, for programs that have
/// tests/fakes/slowdisk.cpp in them. What they ask the disk for, and how long that holds up their
/// event loops, is recorded from the first such word on. One thread.
class SlowDisk
{
public:
    /// A disk that answers at once.
    SlowDisk();
    /// Ends every wait.
    ~SlowDisk();

    SlowDisk(const SlowDisk &) = delete;
    SlowDisk &operator=(const SlowDisk &) = delete;

    /// Where it is, or a file or folder on it.
    QString path(const QString &name = {}) const;

    /// The environment variable by which a program finds the disk, and its value.
    static constexpr auto variable = "SLOWDISK";
    QString steering() const { return m_steering.path(); }

    // From now on, each time in place of what was said before, also for who waits already. `name`
    // is a file or folder on the disk, for when that alone is slow.

    void answerAtOnce() { rule({}, "each 0 any"); }
    /// Every question takes so much longer.
    void takeEachTime(std::chrono::milliseconds time, const QString &name = {});
    /// Nobody gets an answer for so long, as from a disk that has to wake up.
    void sleep(std::chrono::milliseconds time, const QString &name = {});
    /// Nobody gets an answer any more, as from a share that has gone.
    void hang(const QStringList &names = {QString()});
    /// Every call of the function of the C library fails with the error (of errno): "readdir" in
    /// the middle of a folder that has more than a few entries.
    void fail(int error, const QByteArray &function, const QStringList &names = {QString()});

    /// How many questions the process has put to the disk, or has begun to.
    qsizetype questions(pid_t process) const;

    /// Those of its main thread, as "stat /path".
    QStringList questionsOfMainThread(pid_t process) const;

    /// The longest time that its main thread waited for anything but a processor, between two turns
    /// of its event loop; 0 when it was none that a user would notice.
    std::chrono::milliseconds longestStandstill(pid_t process) const;

private:
    void rule(const QStringList &names, const QByteArray &manner);
    // What the log says of the process behind the word.
    QStringList log(pid_t process, const QString &word) const;

    QTemporaryDir m_disk;
    QTemporaryDir m_steering;
};

} // namespace quorvale::test
