// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "leftovers.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QStringList>
#include <QTest>
#include <QThreadPool>

#include <fstream>
#include <utility>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace quorvale::test {

namespace {

constexpr auto temporaryFolder = "TMPDIR";

qsizetype entries(const QString &folder)
{
    constexpr auto all = QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot;
    return QDir(folder).entryList(all).size();
}

qsizetype childrenOfAllThreads()
{
    qsizetype children = 0;
    const QDir threads(u"/proc/self/task"_s);
    for (const QString &thread : threads.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        QFile list(threads.filePath(thread + u"/children"_s));
        if (list.open(QIODevice::ReadOnly))
            children += list.readAll().count(' '); // one behind each number
    }
    return children;
}

} // namespace

Holdings Holdings::now()
{
    return {entries(u"/proc/self/fd"_s), entries(u"/proc/self/task"_s), childrenOfAllThreads()};
}

Leftovers::Leftovers() : m_outerFolder(qgetenv(temporaryFolder))
{
    if (!m_folder.isValid() || !QFile::exists(u"/proc/self/task"_s))
        qFatal("Cannot watch for leftovers");
    qputenv(temporaryFolder, QFile::encodeName(m_folder.path()));
    QThreadPool::globalInstance()->waitForDone();
    // Threads that have been waited for may still be on their way out.
    constexpr int enoughEqualCounts = 10;
    for (int equal = 0; equal < enoughEqualCounts;) {
        QTest::qSleep(5);
        const Holdings before = std::exchange(m_before, Holdings::now());
        equal = m_before == before ? equal + 1 : 0;
    }
}

Leftovers::~Leftovers()
{
    if (m_outerFolder.isNull())
        qunsetenv(temporaryFolder);
    else
        qputenv(temporaryFolder, m_outerFolder);
}

QString Leftovers::found() const
{
    constexpr int moment = 5'000;                 // milliseconds
    QThreadPool::globalInstance()->waitForDone(); // ends its idle threads
    (void)QTest::qWaitFor([this] { return difference().isEmpty(); }, moment);
    return difference();
}

QString Leftovers::difference() const
{
    const Holdings after = Holdings::now();
    QStringList differences;
    const auto compare = [&](const QString &what, qsizetype before, qsizetype now) {
        if (now > before)
            differences << u"%1 %2 instead of %3"_s.arg(now).arg(what).arg(before);
    };
    compare(u"descriptors"_s, m_before.descriptors, after.descriptors);
    compare(u"threads"_s, m_before.threads, after.threads);
    compare(u"children"_s, m_before.children, after.children);
    QDirIterator files(m_folder.path(),
                       QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot,
                       QDirIterator::Subdirectories);
    while (files.hasNext())
        differences << files.next();
    return differences.join(u", "_s);
}

qint64 residentMemory()
{
    std::ifstream statistics("/proc/self/statm");
    qint64 total = 0;
    qint64 resident = 0;
    statistics >> total >> resident;
    return resident * ::sysconf(_SC_PAGESIZE);
}

} // namespace quorvale::test
