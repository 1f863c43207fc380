// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "videosearch.h"

#include "localfile.h"
#include "model/filename.h"
#include "model/filepath.h"
#include "nameorder.h"

#include <algorithm>
#include <ranges>
#include <system_error>
#include <thread>
#include <utility>

namespace quorvale {

namespace {

// That many threads of a search may wait for places that do not answer, and that many more were
// left behind in such places and have not come back.
constexpr std::size_t mostWorkers = 16;
constexpr std::size_t mostLeftBehind = 240;

} // namespace

VideoSearch::VideoSearch(const QList<QList<QUrl>> &additions, const SearchPatience &patience,
                         const std::function<void()> &notify)
    : m_patience(patience), m_notify(notify)
{
    for (const QList<QUrl> &urls : additions) {
        Addition &addition = m_additions.emplace_back();
        for (const QUrl &url : urls) {
            if (const auto file = localFile(url))
                addition.trees.emplace_back(SearchedPlace{*file});
        }
        addition.unread = addition.trees.size();
        if (addition.unread == 0)
            m_unsorted.push_back(&addition);
    }
    for (Addition &addition : m_additions | std::views::reverse) {
        for (VideoTree &tree : addition.trees | std::views::reverse)
            m_errands.push_back({&tree, &addition});
    }
}

void VideoSearch::start()
{
    const std::scoped_lock guard(m_lock);
    m_watchedAt = std::chrono::steady_clock::now();
    if (!m_errands.empty() || !m_unsorted.empty())
        startWorker();
}

// With the lock held.
void VideoSearch::startWorker()
{
    if (m_threadCount == mostWorkers + mostLeftBehind)
        return; // as if there were no thread to be had
    const auto worker = std::make_shared<Worker>();
    try {
        // Detached, because a thread that waits for a disk cannot be ended.
        std::thread([self = shared_from_this(), worker] { self->work(*worker); }).detach();
    } catch (const std::system_error &) {
        return; // there is no thread to be had; watch() tries again
    }
    m_workers.push_back(worker);
    ++m_threadCount;
}

void VideoSearch::work(Worker &worker)
{
    std::unique_lock lock(m_lock);
    while (!worker.isLeftBehind && (sortNext(lock) || lookAtNext(worker, lock)))
        ;
    std::erase_if(m_workers, [&](const auto &each) { return each.get() == &worker; });
    --m_threadCount;
}

bool VideoSearch::sortNext(std::unique_lock<std::mutex> &lock)
{
    if (m_unsorted.empty())
        return false;
    Addition &addition = *m_unsorted.front();
    m_unsorted.pop_front();
    lock.unlock();
    QList<SourceFile> videos;
    for (VideoTree &tree : addition.trees)
        tree.moveInto(videos);
    sortByName(videos);
    lock.lock();
    addition.result.videos = std::move(videos);
    addition.isReady = true;
    m_notify();
    return true;
}

bool VideoSearch::lookAtNext(Worker &worker, std::unique_lock<std::mutex> &lock)
{
    if (m_errands.empty())
        return false;
    // While another thread waits, this one begins at the far end, which is the least likely to be
    // on the same disk.
    const bool isAlone = m_workers.size() == 1;
    const Errand errand = isAlone ? m_errands.back() : m_errands.front();
    isAlone ? m_errands.pop_back() : m_errands.pop_front();
    worker.errand = errand;
    worker.isOvertaken = false;
    const SearchedPlace place = errand.tree->place();
    lock.unlock();
    FolderContent content = contentOf(place, [&] {
        worker.answers.fetch_add(1, std::memory_order_relaxed);
        return !m_isStopped.load(std::memory_order_relaxed);
    });
    worker.answers.fetch_add(1, std::memory_order_relaxed);
    lock.lock();
    if (worker.isLeftBehind)
        return false;
    worker.errand.reset();
    if (content.isUnreadable)
        leaveOut(errand, false);
    else
        settle(errand, std::move(content));
    return true;
}

// With the lock held.
void VideoSearch::settle(const Errand &errand, FolderContent content)
{
    if (m_isStopped)
        return;
    m_foundCount += static_cast<int>(content.videos.size());
    errand.tree->fill(std::move(content));
    for (VideoTree &folder : errand.tree->folders() | std::views::reverse)
        m_errands.push_back({&folder, errand.addition});
    errand.addition->unread += errand.tree->folders().size() - 1;
    if (errand.addition->unread == 0)
        m_unsorted.push_back(errand.addition);
}

void VideoSearch::watch()
{
    // More than that has not passed for the disks: the whole program was stopped meanwhile.
    constexpr Duration longestStep = std::chrono::seconds(1);
    std::unique_lock lock(m_lock);
    const auto now = std::chrono::steady_clock::now();
    const Duration step = std::min(now - std::exchange(m_watchedAt, now), longestStep);
    for (const auto &worker : m_workers) {
        const quint64 answers = worker->answers.load(std::memory_order_relaxed);
        const bool isSilent =
            worker->errand && std::exchange(worker->seenAnswers, answers) == answers;
        worker->silence = isSilent ? worker->silence + step : Duration::zero();
        worker->isOvertaken |= worker->silence >= m_patience.untilOvertaken;
    }
    std::erase_if(m_workers, [&](const auto &worker) {
        worker->isLeftBehind = worker->silence >= m_patience.untilLeftOut;
        if (worker->isLeftBehind)
            leaveOut(*worker->errand, true);
        return worker->isLeftBehind;
    });
    const bool hasMore = !m_errands.empty() || !m_unsorted.empty();
    const auto isToBeOvertaken = [&](const auto &worker) {
        return worker->silence >= m_patience.untilOvertaken;
    };
    if (hasMore && m_workers.size() < mostWorkers
        && std::ranges::all_of(m_workers, isToBeOvertaken))
        startWorker();
    const bool isLacking = hasMore && m_workers.empty();
    m_lack = isLacking ? m_lack + step : Duration::zero();
    if (m_lack >= m_patience.untilLeftOut)
        goWithoutThreads(lock);
}

// With the lock held.
void VideoSearch::leaveOut(const Errand &errand, bool isSilent)
{
    Result &result = errand.addition->result;
    result.leftOut << shownPath(withoutTrailingSlashes(errand.tree->place().file.path()));
    result.isSilence = result.isSilence && isSilent;
    settle(errand, {});
}

// Comes to an end on the thread that watches, as there has been no other for so long: what was not
// looked at cannot be.
void VideoSearch::goWithoutThreads(std::unique_lock<std::mutex> &lock)
{
    for (const Errand &errand : std::exchange(m_errands, {}) | std::views::reverse)
        leaveOut(errand, false);
    while (sortNext(lock))
        ;
}

std::optional<VideoSearch::Result> VideoSearch::take()
{
    const std::scoped_lock guard(m_lock);
    while (m_takenCount < m_additions.size()) {
        Addition &next = m_additions[m_takenCount];
        const bool isDropped = m_isStopped && next.unread > 0;
        if (!next.isReady && !isDropped)
            break;
        ++m_takenCount;
        if (next.isReady)
            return std::exchange(next.result, {});
    }
    return std::nullopt;
}

bool VideoSearch::isDone() const
{
    const std::scoped_lock guard(m_lock);
    return m_takenCount == m_additions.size();
}

QByteArray VideoSearch::awaited() const
{
    const std::scoped_lock guard(m_lock);
    for (const auto &worker : m_workers) {
        if (const auto &errand = worker->errand; errand && worker->isOvertaken)
            return errand->tree->place().file.path();
    }
    return {};
}

void VideoSearch::stop()
{
    const std::scoped_lock guard(m_lock);
    m_isStopped = true;
    m_foundCount = 0;
    m_errands.clear();
}

} // namespace quorvale
