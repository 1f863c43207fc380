// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "slowdisk.h"

#include "filetree.h"

#include <QFile>

#include <algorithm>
#include <filesystem>

using namespace Qt::StringLiterals;

namespace quorvale::test {

namespace {

qint64 milliseconds(std::chrono::steady_clock::time_point time)
{
    return std::chrono::ceil<std::chrono::milliseconds>(time.time_since_epoch()).count();
}

} // namespace

SlowDisk::SlowDisk()
{
    if (!m_disk.isValid() || !m_steering.isValid())
        qFatal("There is no place for a slow disk");
    write(m_steering.filePath(u"log"_s), {});
}

SlowDisk::~SlowDisk()
{
    answerAtOnce();
}

QString SlowDisk::path(const QString &name) const
{
    return name.isEmpty() ? m_disk.path() : m_disk.filePath(name);
}

void SlowDisk::takeEachTime(std::chrono::milliseconds time, const QString &name)
{
    rule({name}, "each " + QByteArray::number(time.count()) + " any");
}

void SlowDisk::sleep(std::chrono::milliseconds time, const QString &name)
{
    const qint64 end = milliseconds(std::chrono::steady_clock::now() + time);
    rule({name}, "until " + QByteArray::number(end) + " any");
}

void SlowDisk::hang(const QStringList &names)
{
    // Milliseconds of a clock that counts from the start.
    rule(names, "until 9000000000000 any");
}

void SlowDisk::fail(int error, const QByteArray &function, const QStringList &names)
{
    rule(names, "fail " + QByteArray::number(error) + ' ' + function);
}

void SlowDisk::rule(const QStringList &names, const QByteArray &manner)
{
    QByteArray text = manner + '\n' + QFile::encodeName(path()) + '\n';
    for (const QString &name : names)
        text += QFile::encodeName(path(name)) + '\n';
    // Replaced as a whole, and without waiting until it is on a disk.
    const QString file = m_steering.filePath(u"rule"_s);
    const QString next = m_steering.filePath(u"next"_s);
    write(next, text);
    std::filesystem::rename(next.toStdString(), file.toStdString());
}

QStringList SlowDisk::log(pid_t process, const QString &word) const
{
    QFile file(m_steering.filePath(u"log"_s));
    QStringList found;
    if (!file.open(QIODevice::ReadOnly))
        return found;
    const QString beginning = u"%1 %2 "_s.arg(process).arg(word);
    const QStringList lines = QFile::decodeName(file.readAll()).split(u'\n');
    for (const QString &line : lines) {
        if (line.startsWith(beginning))
            found << line.sliced(beginning.size());
    }
    return found;
}

qsizetype SlowDisk::questions(pid_t process) const
{
    return log(process, u"main"_s).size() + log(process, u"other"_s).size();
}

QStringList SlowDisk::questionsOfMainThread(pid_t process) const
{
    return log(process, u"main"_s);
}

std::chrono::milliseconds SlowDisk::longestStandstill(pid_t process) const
{
    int longest = 0;
    for (const QString &time : log(process, u"turn"_s))
        longest = std::max(longest, time.toInt());
    return std::chrono::milliseconds(longest);
}

} // namespace quorvale::test
