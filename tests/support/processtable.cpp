// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "processtable.h"

#include <QDir>
#include <QFile>

#include <filesystem>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace quorvale::test {

namespace {

QList<QByteArray> words(pid_t process, const QString &file)
{
    QFile list(u"/proc/%1/%2"_s.arg(process).arg(file));
    if (!list.open(QIODevice::ReadOnly))
        return {};
    QList<QByteArray> words = list.readAll().split('\0');
    words.removeLast(); // behind the last NUL
    return words;
}

} // namespace

QList<pid_t> processesWithEnvironment(const QByteArray &entry)
{
    QList<pid_t> found;
    for (const QString &name : QDir(u"/proc"_s).entryList(QDir::Dirs)) {
        bool isProcess = false;
        const pid_t process = name.toInt(&isProcess);
        if (isProcess && words(process, u"environ"_s).contains(entry))
            found << process;
    }
    return found;
}

QList<QByteArray> commandLine(pid_t process)
{
    return words(process, u"cmdline"_s);
}

QString openFile(pid_t process, int descriptor)
{
    const auto link = u"/proc/%1/fd/%2"_s.arg(process).arg(descriptor).toStdString();
    std::error_code isClosed;
    return QFile::decodeName(std::filesystem::read_symlink(link, isClosed).c_str());
}

QByteArray mappedFiles(pid_t process)
{
    QFile maps(u"/proc/%1/maps"_s.arg(process));
    return maps.open(QIODevice::ReadOnly) ? maps.readAll() : QByteArray();
}

std::optional<double> processorTime(pid_t process)
{
    QFile file(u"/proc/%1/stat"_s.arg(process));
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    // Behind the name in parentheses, which may hold anything, see proc(5).
    const QByteArray line = file.readAll();
    const QList<QByteArray> fields = line.sliced(line.lastIndexOf(')') + 2).split(' ');
    const double ticks = fields.value(11).toDouble() + fields.value(12).toDouble();
    return ticks / static_cast<double>(::sysconf(_SC_CLK_TCK));
}

} // namespace quorvale::test
