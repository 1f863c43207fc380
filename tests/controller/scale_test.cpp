// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "support/leftovers.h"
#include "support/patience.h"
#include "support/queue.h"
#include "support/searches.h"
#include "support/testclass.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

#include <atomic>
#include <cstdlib>
#include <new>
#include <optional>

#include <fcntl.h>
#include <unistd.h>

using namespace quorvale;
using namespace quorvale::test;
using namespace Qt::StringLiterals;

using enum JobState::Case;

// Queues and batches far longer than usual. What they cost is counted, not timed: in allocations
// and in changes that the views are told of.

namespace {

std::atomic<qint64> allocations = 0;

// How many allocations `action` makes.
template <typename Action>
qint64 allocationsOf(const Action &action)
{
    const qint64 before = allocations;
    action();
    return allocations - before;
}

void makeFiles(const FileTree &tree, int folders, int filesInEach)
{
    for (int folder = 0; folder < folders; ++folder) {
        tree.addFolder(QString::number(folder));
        for (int file = 0; file < filesInEach; ++file) {
            const QByteArray path =
                QFile::encodeName(tree.path(u"%1/clip%2.mkv"_s.arg(folder).arg(file)));
            const int descriptor = ::open(path.constData(), O_CREAT | O_WRONLY | O_CLOEXEC, 0600);
            if (descriptor < 0)
                qFatal("Cannot make %s", path.constData());
            ::close(descriptor);
        }
    }
}

} // namespace

void *operator new(std::size_t size)
{
    ++allocations;
    if (void *memory = std::malloc(size))
        return memory;
    throw std::bad_alloc();
}

void operator delete(void *memory) noexcept
{
    std::free(memory);
}

void operator delete(void *memory, std::size_t) noexcept
{
    std::free(memory);
}

class ScaleTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_queue.emplace(); }

    void aHundredThousandFilesComeAndGoDuringABatch()
    {
        constexpr int files = 100'000;
        const FileTree tree;
        makeFiles(tree, 100, files / 100);
        ConverterViewModel &model = m_queue->model();
        m_queue->setConversions(
            m_queue->tools().untilReleased(Script().out("out_time_ms=5000000\n")));
        m_queue->add({u"1.mkv"_s});
        model.start();
        QVERIFY(m_queue->tools().awaitWaiting());
        QTRY_COMPARE_WITH_TIMEOUT(m_queue->job(0).progress, 0.5, patience);

        const QSignalSpy changes(&model, &ConverterViewModel::jobsChanged);
        const QSignalSpy insertions(model.jobModel(), &JobListModel::rowsInserted);
        model.add({tree.root()});
        QCOMPARE(model.jobCount(), files + 1);
        QCOMPARE(changes.size(), 1);
        QCOMPARE(insertions.size(), 1);
        QCOMPARE(model.overallProgress(), 0.5 / (files + 1));

        // Again, and nothing is new.
        model.add({tree.root()});
        QCOMPARE(model.jobCount(), files + 1);

        // The first change of a job looks where the new ones stand. From then on each change, and
        // each look at the figures, costs the same in any list.
        const QUuid id = m_queue->id(files / 2);
        model.requeue(id);
        constexpr int looks = 100;
        const qint64 most = 10 * looks;
        QVERIFY(allocationsOf([&] {
                    for (int i = 0; i < looks; ++i) {
                        model.jobModel()->setProgress(id, i / 100.0);
                        if (model.completedCount() != 0 || model.overallProgress() > 1.0)
                            qFatal("The figures are wrong");
                    }
                })
                < most);
        model.requeue(id);

        // All but the one that is being converted are completed and go.
        for (qsizetype row = 1; row <= files; ++row)
            model.jobModel()->setState(m_queue->id(row), JobState::completed());
        QCOMPARE(model.completedCount(), files);
        const qsizetype before = changes.size();
        model.clearCompleted();
        QCOMPARE(model.jobCount(), 1);
        QCOMPARE(changes.size() - before, 1);

        m_queue->tools().release();
        QVERIFY(m_queue->awaitEnd());
        QCOMPARE(m_queue->state(0), completed);
        QCOMPARE(m_queue->tools().runs(u"ffmpeg"_s).size(), 1);
    }

    void everySecondOfManyJobsIsCleared()
    {
        constexpr int count = 100'000;
        ConverterViewModel &model = m_queue->model();
        QList<QUrl> urls;
        for (int i = 0; i < count; ++i)
            urls << QUrl::fromLocalFile(u"/in/%1.mkv"_s.arg(i, 6, 10, QChar(u'0')));
        model.add(urls);
        for (qsizetype row = 0; row < count; row += 2)
            model.jobModel()->setState(m_queue->id(row), JobState::completed());
        const QSignalSpy changes(&model, &ConverterViewModel::jobsChanged);
        const QSignalSpy removals(model.jobModel(), &JobListModel::rowsRemoved);
        const QSignalSpy resets(model.jobModel(), &JobListModel::modelReset);
        const QAbstractItemModelTester tester(model.jobModel());
        model.clearCompleted();
        // Each removal moves all that is behind it.
        QVERIFY(removals.size() + resets.size() <= 1000);
        QCOMPARE(changes.size(), 1);
        QCOMPARE(model.jobCount(), count / 2);
        QCOMPARE(model.completedCount(), 0);
        for (qsizetype row = 0; row < count / 2; ++row)
            QCOMPARE(m_queue->job(row).source(), urls[2 * row + 1]);
    }

    void theJobsLeftAreFoundAfterAClearing_data()
    {
        QTest::addColumn<int>("count");
        QTest::newRow("run by run") << 1'000;
        QTest::newRow("at once") << 3'000;
    }
    void theJobsLeftAreFoundAfterAClearing()
    {
        QFETCH(const int, count);
        ConverterViewModel &model = m_queue->model();
        QList<QUrl> urls;
        for (int i = 0; i < count; ++i)
            urls << QUrl::fromLocalFile(u"/in/%1.mkv"_s.arg(i, 6, 10, QChar(u'0')));
        model.add(urls);
        QList<QUuid> left;
        for (qsizetype row = 0; row < count; ++row) {
            if (row % 2 == 0)
                model.jobModel()->setState(m_queue->id(row), JobState::completed());
            else
                left << m_queue->id(row);
        }
        model.clearCompleted();
        for (qsizetype row = 0; row < left.size(); ++row)
            QCOMPARE(model.jobModel()->rowOf(left[row]), std::optional(row));
        QCOMPARE(model.jobCount(), left.size());
    }

    void tenThousandDropsOfOneFile()
    {
        constexpr int drops = 10'000;
        ConverterViewModel &model = m_queue->model();
        QList<QUrl> urls;
        for (int i = 0; i < drops; ++i)
            urls << QUrl::fromLocalFile(u"/in/%1.mkv"_s.arg(drops - i));
        const QSignalSpy changes(&model, &ConverterViewModel::jobsChanged);
        const auto drop = [&](qsizetype from, qsizetype count) {
            return allocationsOf([&] {
                for (const QUrl &url : urls.sliced(from, count))
                    model.handleDrop({url});
                if (!awaitSearches(*model.searches()))
                    qWarning("The search does not end");
            });
        };
        const qint64 first = drop(0, drops / 2);
        QCOMPARE(model.jobCount(), drops / 2);
        const qint64 second = drop(drops / 2, drops / 2);
        QCOMPARE(model.jobCount(), drops);
        QCOMPARE(changes.size(), drops);
        // The queue's length does not make a drop dearer.
        QVERIFY2(second < first + first / 2, qPrintable(u"%1, %2"_s.arg(first).arg(second)));
        for (qsizetype row = 0; row < drops; ++row)
            QCOMPARE(m_queue->job(row).source(), urls[row]); // in the order of the drops
    }

    void aThousandConversionsLeaveNothingBehind()
    {
        constexpr int count = 1000;
        constexpr int early = 100;
        ConverterViewModel &model = m_queue->model();
        m_queue->setConversions(Script().out("out_time_ms=5000000\nprogress=end\n"));
        QList<QUrl> urls;
        for (int i = 0; i < count; ++i)
            urls << QUrl::fromLocalFile(u"/in/%1.mkv"_s.arg(i));
        model.add(urls);

        Holdings holdingsEarly;
        qint64 memoryEarly = 0;
        connect(model.jobModel(), &JobListModel::changed, this, [&, seen = 0]() mutable {
            if (model.completedCount() == seen)
                return;
            seen = model.completedCount();
            if (seen == early) {
                holdingsEarly = Holdings::now();
                memoryEarly = residentMemory();
            }
            if (seen % early == 0)
                m_queue->tools().forgetRuns();
        });
        const QSignalSpy changes(&model, &ConverterViewModel::jobsChanged);
        QVERIFY(m_queue->runBatch());
        const Holdings holdings = Holdings::now();
        const qint64 grown = residentMemory() - memoryEarly;

        QCOMPARE(model.completedCount(), count);
        QCOMPARE(model.overallProgress(), 1.0);
        // Two changes at a job's beginning, two at its end and its two values.
        QCOMPARE(changes.size(), 6 * count);
        QCOMPARE(holdings.children, 0);
        // The pool has a thread more when a job comes before its predecessor's is free, and such a
        // thread has a descriptor of its own.
        const auto spare = static_cast<qsizetype>(QThread::idealThreadCount());
        QVERIFY2(holdings.threads <= holdingsEarly.threads + spare, "threads");
        QVERIFY2(holdings.descriptors <= holdingsEarly.descriptors + 2 * spare, "descriptors");
        QVERIFY2(grown < 4 * 1024 * 1024, qPrintable(QString::number(grown)));
    }

private:
    std::optional<Queue> m_queue;
};

QUORVALE_TEST(ScaleTest)
#include "scale_test.moc"
