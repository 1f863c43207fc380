// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "plannedconversions.h"
#include "service/ffmpegerror.h"
#include "support/patience.h"
#include "support/queue.h"

#include <QAbstractItemModelTester>
#include <QDeadlineTimer>
#include <QSignalSpy>
#include <QThread>

#include <algorithm>

namespace quorvale::test {

using namespace Qt::StringLiterals;
using enum JobState::Case;

// Whether it became true in time, with events processed meanwhile.
template <typename Condition>
bool becomesTrue(const Condition &condition)
{
    const QDeadlineTimer deadline(patience);
    while (!condition()) {
        if (deadline.hasExpired())
            return false;
        QCoreApplication::processEvents();
        QThread::usleep(300);
    }
    return true;
}

/// A queue and a plain model of it, on which the same is done at random, step by step. Each search
/// looks at a folder of its own on the disk, which does not answer until the search is to end. One
/// at a time, in programs that have tests/fakes/slowdisk.cpp and tests/fakes/scarcity.cpp in them.
class QueuePair
{
public:
    // What may be done beside editing the queue.
    enum class Work { none, batches, searches, batchesAndSearches, allWithFaults };

    QueuePair(Random &random, SlowDisk &disk, Work work)
        : m_random(random), m_disk(disk), m_work(work),
          m_conversions(random, m_queue.tools(), disk, work == Work::allWithFaults)
    {
        m_reference.plans = m_conversions.plans();
        if (work == Work::allWithFaults)
            m_queue.choose(QUrl::fromLocalFile(m_conversions.outputFolder()));
        QObject::connect(m_queue.model().jobModel(), &JobListModel::changed, &m_context,
                         [this] { followBatch(); });
    }

    // Does something at random on both sides. Says what is different afterwards, or nothing.
    QString step()
    {
        constexpr int editing = 9;
        constexpr int converting = 5;
        constexpr int searching = 6;
        const bool mayConvert = m_work != Work::none && m_work != Work::searches;
        const bool maySearch = m_work != Work::none && m_work != Work::batches;
        const int kind =
            oneOf(m_random, editing + (mayConvert ? converting : 0) + (maySearch ? searching : 0));
        if (maySearch && kind >= editing + (mayConvert ? converting : 0))
            stepOfSearch(oneOf(m_random, searching));
        else
            step(kind);
        return settled();
    }
    // Lets the batch that runs and all searches come to their end.
    QString end()
    {
        QString difference;
        while (difference.isEmpty() && m_reference.isConverting) {
            endConversion();
            difference = settled();
        }
        while (difference.isEmpty() && !m_reference.searches.isEmpty()) {
            endSearch();
            difference = settled();
        }
        if (!becomesTrue([this] { return !m_queue.model().searches()->hasThreads(); }))
            return u"there are threads left,"_s;
        return difference;
    }

    QString log() const { return m_log.join(u", "_s); }
    qsizetype conversions() const { return m_reference.conversions; }
    qsizetype searches() const { return m_searches; }
    qsizetype failedBeginnings() const { return m_failedBeginnings; }

private:
    void step(int kind)
    {
        switch (kind) {
        case 0:
        case 1:
        case 2:
            add();
            break;
        case 3:
            applyToSomeJob(u"remove"_s, [this](const QUuid &id) {
                m_queue.model().remove(id);
                m_reference.remove(id);
            });
            break;
        case 4:
            applyToSomeJob(u"requeue"_s, [this](const QUuid &id) {
                m_queue.model().requeue(id);
                m_reference.requeue(id);
            });
            break;
        case 5:
            applyToSomeJob(u"move"_s, [this](const QUuid &id) {
                const int offset = oneOf(m_random, 9) - 4;
                m_queue.model().moveJob(id, offset);
                m_reference.move(id, offset);
            });
            break;
        case 6:
            moveSeveral();
            break;
        case 7:
            m_log << u"clear"_s;
            m_queue.model().clearCompleted();
            m_reference.clearCompleted();
            break;
        case 8:
            m_log << u"cancel"_s;
            m_queue.model().cancel();
            m_reference.cancel();
            break;
        case 9:
        case 10:
            m_log << u"start"_s;
            m_queue.model().start();
            m_reference.start();
            break;
        default:
            endConversion();
        }
    }

    void stepOfSearch(int kind)
    {
        if (kind < 3) {
            search();
        } else if (kind < 5) {
            endSearch();
        } else {
            m_log << u"stop searching"_s;
            // What has ended behind others may still be at its last.
            becomesTrue([this] {
                return m_queue.model().searches()->foundCount() == m_reference.foundCount();
            });
            m_queue.model().searches()->stop();
            m_reference.stopSearches();
            m_folders.clear();
            m_conversions.silence(m_folders);
        }
    }

    // Prepares each conversion that is about to begin.
    void followBatch()
    {
        const auto &jobs = m_queue.model().jobs();
        const auto job = std::ranges::find_if(
            jobs, [](const ConversionJob &each) { return each.state.is(converting); });
        const QUuid id = job == jobs.end() ? QUuid() : job->id();
        if (std::exchange(m_convertingId, id) == id || id.isNull())
            return;
        m_conversions.prepareNext(!m_reference.searches.isEmpty()
                                  || m_queue.model().searches()->hasThreads());
    }

    // Conversions that could not begin, on the other side as well.
    void takeFailures()
    {
        const auto couldNotBegin = [this] {
            const qsizetype number = m_reference.conversions;
            return m_reference.isConverting && m_reference.plans[number - 1].mayNotBegin()
                   && (m_conversions.prepared() > number || !m_queue.model().isConverting());
        };
        while (couldNotBegin()) {
            const ReferenceQueue::Job *expected = m_reference.convertingJob();
            const ConversionJob *job =
                expected ? m_queue.model().jobModel()->find(expected->id) : nullptr;
            const QString message = job ? job->state.message() : QString();
            if (job && !message.contains(u" could not be started: "_s)
                && !message.contains(u" could not be created: "_s)
                && message != FFmpegError::notFound().errorDescription())
                m_unexpected << message;
            ++m_failedBeginnings;
            m_reference.failBeginning(message);
        }
    }

    // Lets the conversion that stands still go on.
    void endConversion()
    {
        if (!m_reference.isConverting)
            return;
        if (m_reference.isStalled()) {
            m_log << u"begin"_s;
            m_conversions.begin();
        } else {
            m_log << u"end"_s;
            m_conversions.end();
        }
        m_reference.endConversion();
    }

    // In one of the folders.
    QStringList randomPaths(const QStringList &folders)
    {
        static const QStringList endings{u".mkv"_s, u".mkv"_s, u".mkv"_s, u".txt"_s};
        QStringList paths;
        for (int count = oneOf(m_random, 4); count >= 0; --count) {
            const auto folder = oneOf(m_random, static_cast<int>(folders.size()));
            paths << folders[folder] + QChar(u'a' + oneOf(m_random, 8))
                         + endings[oneOf(m_random, 4)];
        }
        return paths;
    }

    static QList<QUrl> urls(const QStringList &paths)
    {
        QList<QUrl> urls;
        for (const QString &path : paths)
            urls << QUrl::fromLocalFile(path);
        return urls;
    }

    void add()
    {
        const QStringList paths = randomPaths({u"/in/"_s, u"/in/../in/"_s, u"/other/"_s});
        m_log << u"add "_s + paths.join(u' ');
        m_queue.model().add(urls(paths));
        m_reference.add(paths);
    }

    // By a drop, of which each file is an addition, or by a panel.
    void search()
    {
        const QString folder = QString::number(++m_searches);
        m_folders << folder;
        m_conversions.silence(m_folders);
        // From there to the folders of the other additions, although no such way leads there.
        const QString path = m_disk.path(folder);
        const QString toTheRoot = path + u"/.."_s.repeated(path.count(u'/'));
        QStringList paths = randomPaths({toTheRoot + u"/in/"_s, toTheRoot + u"/other/"_s});
        // What has been found says what has been looked at.
        paths.replaceInStrings(u".txt"_s, u".mkv"_s);
        const bool isDrop = oneOf(m_random, 2) == 0;
        m_log << (isDrop ? u"drop "_s : u"choose "_s) + paths.join(u' ');
        if (isDrop) {
            m_queue.model().handleDrop(urls(paths));
            QList<QStringList> additions;
            for (const QString &path : std::as_const(paths))
                additions << QStringList{path};
            m_reference.search(folder, additions);
        } else {
            m_queue.model().search(urls(paths));
            m_reference.search(folder, {paths});
        }
    }

    // Lets one of the searches find what it looks for.
    void endSearch()
    {
        if (m_folders.isEmpty())
            return;
        const QString folder =
            m_folders.takeAt(oneOf(m_random, static_cast<int>(m_folders.size())));
        m_log << u"end of search "_s + folder;
        m_conversions.silence(m_folders);
        m_reference.endSearch(folder);
    }

    // The jobs that have been added have the numbers that the queue has given them.
    void takeIds()
    {
        const auto &jobs = m_queue.model().jobs();
        for (qsizetype row = 0; row < std::min(jobs.size(), m_reference.jobs.size()); ++row) {
            if (m_reference.jobs[row].id.isNull())
                m_reference.jobs[row].id = jobs[row].id();
        }
    }

    template <typename Action>
    void applyToSomeJob(const QString &name, const Action &action)
    {
        const int row = oneOf(m_random, 10); // an unknown job beyond the last
        m_log << u"%1 %2"_s.arg(name).arg(row);
        const bool isThere = row < m_reference.jobs.size();
        action(isThere ? m_reference.jobs[row].id : QUuid::createUuid());
    }

    void moveSeveral()
    {
        QList<int> rows;
        for (int count = oneOf(m_random, 4); count > 0; --count)
            rows << oneOf(m_random, 12) - 1;
        const int destination = oneOf(m_random, 14) - 1;
        m_log << u"move several before %1"_s.arg(destination);
        m_queue.model().moveJobs(rows, destination);
        m_reference.move(rows, destination);
    }

    QString settled()
    {
        const bool isSettled = becomesTrue([this] {
            takeFailures();
            if (m_found.size() != m_reference.additionsFound)
                return false;
            if (!m_reference.isConverting)
                return !m_queue.model().isConverting();
            const ReferenceQueue::Job *job = m_reference.convertingJob();
            const bool isRunning = m_conversions.isRunning(m_reference.conversions);
            return m_conversions.prepared() == m_reference.conversions
                   && isRunning != m_reference.isStalled() && (!job || isAsFarAs(*job));
        });
        if (!m_reference.isStalled())
            m_conversions.liftFaults();
        QCoreApplication::sendPostedEvents(m_queue.model().searches()); // of an end
        takeIds();
        if (m_found.size() != m_reference.additionsFound)
            return u"%1 additions were found instead of %2"_s.arg(m_found.size())
                .arg(m_reference.additionsFound);
        if (!m_unexpected.isEmpty())
            return u"“%1” is not what was missing"_s.arg(m_unexpected.join(u"”, “"_s));
        if (isSettled)
            return difference();
        const qsizetype number = m_reference.conversions;
        const auto running = [](bool isRunning) {
            return isRunning ? u"running"_s : u"ended"_s;
        };
        return u"the batch is %1 instead of %2 at conversion %3, whose tool %4, planned as %5 with fault %6, of %7 begun,"_s
            .arg(running(m_queue.model().isConverting()), running(m_reference.isConverting))
            .arg(number)
            .arg(m_conversions.isRunning(number) ? u"has begun"_s : u"has not begun"_s)
            .arg(number > 0 ? static_cast<int>(m_reference.plans[number - 1].atInterrupt) : -1)
            .arg(number > 0 ? static_cast<int>(m_reference.plans[number - 1].fault) : -1)
            .arg(m_conversions.prepared());
    }

    bool isAsFarAs(const ReferenceQueue::Job &expected)
    {
        const ConversionJob *job = m_queue.model().jobModel()->find(expected.id);
        return job && job->progress == expected.progress;
    }

    QString difference()
    {
        const ConverterViewModel &model = m_queue.model();
        if (model.jobs().size() != m_reference.jobs.size())
            return u"%1 jobs instead of %2"_s.arg(model.jobs().size()).arg(m_reference.jobs.size());
        for (qsizetype row = 0; row < m_reference.jobs.size(); ++row) {
            const ConversionJob &job = model.jobs()[row];
            const ReferenceQueue::Job &expected = m_reference.jobs[row];
            if (job.id() != expected.id || job.source().toLocalFile() != expected.source)
                return u"job %1 is another"_s.arg(row);
            if (job.state != expected.state)
                return u"job %1 has another state"_s.arg(row);
            if (job.progress != expected.progress)
                return u"job %1 has another progress"_s.arg(row);
        }
        if (model.isConverting() != m_reference.isConverting)
            return u"the batch"_s;
        if (model.completedCount() != m_reference.completedCount())
            return u"the number of completed jobs"_s;
        if (model.overallProgress() != m_reference.overallProgress())
            return u"the overall progress"_s;
        if (model.alertMessage() != m_reference.alertMessage)
            return u"the alert"_s;
        return {};
    }

    Random &m_random;
    SlowDisk &m_disk;
    const Work m_work;
    Queue m_queue;
    PlannedConversions m_conversions;
    // Ends the program when what views are told does not fit the list.
    QAbstractItemModelTester m_tester{m_queue.model().jobModel(),
                                      QAbstractItemModelTester::FailureReportingMode::Fatal};
    const QSignalSpy m_found{m_queue.model().searches(), &SearchQueue::found};
    ReferenceQueue m_reference;
    QUuid m_convertingId;
    qsizetype m_failedBeginnings = 0;
    QStringList m_unexpected; // reasons of theirs
    qsizetype m_searches = 0; // so many there were
    QStringList m_folders;    // of those that have not ended
    QStringList m_log;
    QObject m_context; // the first to go, and nothing is followed any more
};

} // namespace quorvale::test
