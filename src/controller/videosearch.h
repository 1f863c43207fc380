// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "videotree.h"

#include <QStringList>
#include <QUrl>

#include <atomic>
#include <chrono>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

namespace quorvale {

/// How long a place may take to answer.
struct SearchPatience
{
    /// Until the other places are looked at meanwhile.
    std::chrono::milliseconds untilOvertaken = std::chrono::seconds(1);
    /// Until the place is left out. Disks that wake up and shares whose server starts again take
    /// half a minute.
    std::chrono::milliseconds untilLeftOut = std::chrono::seconds(60);
};

/// Looks for the videos among files and folders on threads of its own, so that nobody has to wait
/// for a disk. One thread does it, and another one takes over from a thread that waits for a place
/// that does not answer.
///
/// A thread that waits when the search is stopped or given up is left behind, and holds nothing but
/// the memory of the search. All operations are for one thread, the one that made the search.
class VideoSearch : public std::enable_shared_from_this<VideoSearch>
{
public:
    /// Looks for the videos of each of these lists, in order; see findVideos(). `notify` is called,
    /// on any thread, when take() may have something.
    VideoSearch(const QList<QList<QUrl>> &additions, const SearchPatience &patience,
                const std::function<void()> &notify);

    /// Begins to search. To be called once.
    void start();

    /// What was found for one list.
    struct Result
    {
        QList<SourceFile> videos; ///< sorted by name
        QStringList leftOut;      ///< the paths that could not be looked at, as they are shown
        bool isSilence = true;    ///< none of these has answered; otherwise not all could be read
    };

    /// What was found for the next list, once that and what there is for all lists before it is
    /// known. Nothing when it is not, or all were taken.
    std::optional<Result> take();

    /// Whether all were taken, as far as they will come.
    bool isDone() const;

    /// How many videos were found so far; none of a search that was stopped.
    int foundCount() const { return m_foundCount; }

    /// Has others take over from threads that wait for too long, and leaves out what does not
    /// answer. Where no thread is to be had for as long as that, leaves out all that has not been
    /// looked at, as what could not be read. To be called several times a second.
    void watch();

    /// The path of a place that is waited for for so long that others were looked at meanwhile;
    /// empty when there is none.
    QByteArray awaited() const;

    /// Ends the search. To be taken is only what was found for lists of which everything was looked
    /// at by now.
    void stop();

private:
    using Duration = std::chrono::steady_clock::duration;

    struct Addition
    {
        std::vector<VideoTree> trees; // one for each URL
        std::size_t unread = 0;       // places that are still to be looked at
        Result result;
        bool isReady = false;
    };

    // A place that is still to be looked at, and the addition that it belongs to.
    struct Errand
    {
        VideoTree *tree = nullptr;
        Addition *addition = nullptr;
    };

    // One thread.
    struct Worker
    {
        std::atomic<quint64> answers = 0; // to its calls of the file system
        // The others are guarded by m_lock.
        std::optional<Errand> errand; // what it looks at, unless it sorts
        bool isOvertaken = false;     // while it looks at that
        bool isLeftBehind = false;
        quint64 seenAnswers = 0;
        Duration silence{}; // since it last had an answer, as far as was watched
    };

    void startWorker();
    void work(Worker &worker);
    bool lookAtNext(Worker &worker, std::unique_lock<std::mutex> &lock);
    bool sortNext(std::unique_lock<std::mutex> &lock);
    void settle(const Errand &errand, FolderContent content);
    void leaveOut(const Errand &errand, bool isSilent);
    void goWithoutThreads(std::unique_lock<std::mutex> &lock);

    const SearchPatience m_patience;
    const std::function<void()> m_notify;
    std::atomic<bool> m_isStopped = false;
    std::atomic<int> m_foundCount = 0;

    mutable std::mutex m_lock; // guards all below, never held across a look at a disk
    std::deque<Addition> m_additions;
    std::size_t m_takenCount = 0;                   // of these
    std::deque<Errand> m_errands;                   // the next one is the last
    std::deque<Addition *> m_unsorted;              // found but not sorted
    std::vector<std::shared_ptr<Worker>> m_workers; // but those left behind
    std::size_t m_threadCount = 0;                  // with these
    Duration m_lack{};                              // for so long there is work and no worker
    std::chrono::steady_clock::time_point m_watchedAt;
};

} // namespace quorvale
