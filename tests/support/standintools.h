// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QTemporaryDir>

namespace quorvale::test {

/// What a stand-in tool does, command by command; see tests/fakes/standintool.cpp.
class Script
{
public:
    Script &out(const QByteArray &bytes) { return add("out", bytes); }
    Script &err(const QByteArray &bytes) { return add("err", bytes); }
    Script &outRepeatedly(int count, const QByteArray &bytes)
    {
        return add("out-repeat " + QByteArray::number(count), bytes);
    }
    Script &errRepeatedly(int count, const QByteArray &bytes)
    {
        return add("err-repeat " + QByteArray::number(count), bytes);
    }
    Script &writeOutput(const QByteArray &bytes) { return add("write-output", bytes); }
    Script &wait(int milliseconds) { return add("wait", milliseconds); }
    Script &touch(const QString &path) { return add("touch", path.toUtf8()); }
    Script &await(const QString &path) { return add("await", path.toUtf8()); }
    Script &closeOut() { return add("close-out"); }
    Script &closeErr() { return add("close-err"); }
    Script &ignoreInterrupt() { return add("ignore-interrupt"); }
    Script &catchInterrupt(int status) { return add("catch-interrupt", status); }
    Script &countInterrupts() { return add("count-interrupts"); }
    Script &leaveGrandchild(int milliseconds) { return add("leave-grandchild", milliseconds); }
    Script &leaveFloodingGrandchild(int milliseconds)
    {
        return add("leave-flooding-grandchild", milliseconds);
    }
    Script &die(int signal) { return add("die", signal); }
    Script &exit(int status) { return add("exit", status); }

    const QByteArray &text() const { return m_text; }

private:
    Script &add(const QByteArray &command);
    Script &add(const QByteArray &command, int number);
    Script &add(const QByteArray &command, const QByteArray &bytes);

    QByteArray m_text;
};

/// A folder with a stand-in `ffmpeg` and `ffprobe`, which is where the code under test looks for
/// its tools while this object lives. Both do nothing until they are given scripts; ffprobe
/// describes a source of 10 seconds and 1,000,000 bits per second of video until told otherwise.
class StandInTools
{
public:
    StandInTools();
    ~StandInTools();

    StandInTools(const StandInTools &) = delete;
    StandInTools &operator=(const StandInTools &) = delete;

    /// Where both tools are, with its trailing slash.
    QString folder() const { return m_folder.path() + u'/'; }
    QString path(const QString &fileName) const { return m_folder.filePath(fileName); }

    /// Removes whatever stands in the tool's place.
    void removeTool(const QString &tool);

    /// Puts the stand-in back in the tool's place.
    void restoreTool(const QString &tool);

    /// Puts an executable file with these contents in the tool's place.
    void replaceTool(const QString &tool, const QByteArray &contents);

    /// What every run of `tool` does.
    void setScript(const QString &tool, const Script &script);

    /// What ffmpeg does when it is asked to describe a source, because ffprobe could not.
    void setDescription(const Script &script);

    /// Appends to `script`: describe the source as ffprobe does until told otherwise.
    static Script describing(Script script = {});

    /// What the run `number`, counted from 1, of `tool` does.
    void setScript(const QString &tool, int number, const Script &script);

    /// Appends to `script`: say that the tool runs, then wait for release().
    Script untilReleased(Script script = {}) const;
    /// Whether a tool with such a script runs before long. Processes events.
    [[nodiscard]] bool awaitWaiting() const;
    void release() const;

    /// The arguments of every run of `tool` so far, byte for byte.
    QList<QList<QByteArray>> runs(const QString &tool) const;

    /// Counts the runs of both tools anew. For thousands of runs, which would get slower and
    /// slower.
    void forgetRuns();

    /// How many SIGINTs the last run of `tool` counted.
    int countedInterrupts(const QString &tool) const;

private:
    QTemporaryDir m_folder;
};

} // namespace quorvale::test
