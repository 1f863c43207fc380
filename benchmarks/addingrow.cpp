// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "processrun.h"
#include "rows.h"
#include "statistics.h"

#include <QDir>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace quorvale::bench {

namespace {

const QString findAndSort = u"<code>find … &#124; sort -V</code>"_s;

// A tree of so many files, of which every `nth` is a video.
class Tree
{
public:
    Tree(int count, int nth)
    {
        const QDir root(path());
        for (int i = 0; i < count; ++i) {
            if (i % 200 == 0 && !root.mkdir(QString::number(i / 200)))
                qFatal("Cannot make a folder");
            // In an order that is not that of the names, as on a disk.
            QFile file(root.filePath(u"%1/Clip %2.%3"_s.arg(i / 200)
                                         .arg(qint64(i) * 7919 % count)
                                         .arg(i % nth == 0 ? u"mp4"_s : u"txt"_s)));
            if (!file.open(QIODevice::WriteOnly))
                qFatal("Cannot make a file");
        }
    }

    QString path() const { return m_root.path(); }

    // How long find and sort take for the same.
    double timeToFindAndSort() const
    {
        return runProcess(
                   {u"/bin/sh"_s, u"-c"_s, u"find \"$0\" -type f | sort -V >/dev/null"_s, path()})
            .wall;
    }

private:
    QTemporaryDir m_root;
};

double timeToSearch(const QStringList &folders)
{
    return runTask(QStringList{u"search-folders"_s} + folders).wall;
}

double ratio(int pairs, const Tree &tree)
{
    return medianRatio(
        pairs, [&] { return timeToSearch({tree.path()}); },
        [&] { return tree.timeToFindAndSort(); });
}

} // namespace

void measureAdding(const Report &report)
{
    constexpr int count = 100'000;
    {
        const Tree half(count, 2);
        report({u"a tree of 100,000 files dropped, half of them videos (whole processes)"_s,
                findAndSort, u"≤ 0.5"_s, QString::number(ratio(9, half), 'f', 2)});
    }
    const Tree tree(count, 1);
    report({u"the same, all of them videos"_s, findAndSort, u"≤ 0.8"_s,
            QString::number(ratio(9, tree), 'f', 2)});
    const Tree other(count, 1);
    const double two = medianRatio(
        9,
        [&] {
            return timeToSearch({tree.path(), other.path()});
        },
        [&] { return timeToSearch({tree.path()}); });
    report({u"two such trees dropped, searched at the same time"_s, u"one of them"_s, u"–"_s,
            QString::number(two, 'f', 2)});
}

void measureLargeTree(const Report &report)
{
    const Tree tree(1'000'000, 2);
    report({u"a tree of 1,000,000 files dropped, half of them videos (whole processes)"_s,
            findAndSort, u"≤ 1.0"_s, QString::number(ratio(3, tree), 'f', 2)});
    QList<double> gaps;
    QList<double> queuing;
    QList<double> frames;
    for (int i = 0; i < 3; ++i) {
        const QList<QByteArray> figures =
            runTask({u"search-with-window"_s, tree.path()}).output.split('\n');
        gaps << figures.value(0).toDouble();
        queuing << figures.value(1).toDouble();
        frames << figures.value(2).toDouble();
    }
    const auto milliseconds = [](const QList<double> &seconds) {
        return u"%1 ms"_s.arg(1000 * median(seconds), 0, 'f', 1);
    };
    report({u"the same in the window: longest time between two turns while it is searched"_s,
            u"–"_s, u"≤ 50 ms"_s, milliseconds(gaps)});
    report({u"the same: the turn in which all of them are queued"_s, u"–"_s, u"–"_s,
            milliseconds(queuing)});
    report({u"the same: longest frame while the list is scrolled from end to end then"_s,
            u"software renderer"_s, u"≤ 33 ms"_s, milliseconds(frames)});
}

} // namespace quorvale::bench
