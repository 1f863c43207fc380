// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "searchqueue.h"

#include "model/filename.h"
#include "model/filepath.h"
#include "model/legible.h"

#include <QCoreApplication>

#include <algorithm>
#include <chrono>
#include <utility>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quorvale {

namespace {

constexpr auto longTime = 500ms;
constexpr auto watchInterval = 100ms;

// So many searches go on at the same time; the others are not handed over before them anyway.
constexpr std::size_t mostStarted = 4;

QString quoted(const QString &place)
{
    return u'“' + place + u'”';
}

} // namespace

SearchQueue::SearchQueue(const SearchPatience &patience)
    : m_patience(patience), m_self(std::make_shared<SearchQueue *>(this))
{
    m_watch.setInterval(watchInterval);
    connect(&m_watch, &QTimer::timeout, this, &SearchQueue::watch);
}

SearchQueue::~SearchQueue()
{
    for (const auto &search : m_searches)
        search->stop();
}

void SearchQueue::search(const QList<QList<QUrl>> &additions)
{
    // The thread may be left behind, so it posts to the application and keeps nothing of this.
    const auto notify = [weak = std::weak_ptr(m_self)] {
        const auto comeBack = [weak] {
            if (const auto self = weak.lock())
                (*self)->handOver();
        };
        QMetaObject::invokeMethod(qApp, comeBack, Qt::QueuedConnection);
    };
    if (m_searches.empty()) {
        m_time.start();
        m_watch.start();
    }
    m_searches.push_back(std::make_shared<VideoSearch>(additions, m_patience, notify));
    startNext();
}

void SearchQueue::startNext()
{
    while (m_startedCount < std::min(mostStarted, m_searches.size()))
        m_searches[m_startedCount++]->start();
}

void SearchQueue::handOver()
{
    // A drop may bring thousands of files, each of them an addition: the window gets its turn, too.
    constexpr qint64 longestTurn = 10; // milliseconds
    QElapsedTimer turn;
    turn.start();
    while (!m_searches.empty()) {
        if (const auto result = m_searches.front()->take()) {
            note(*result);
            Q_EMIT found(result->videos);
        } else if (m_searches.front()->isDone()) {
            const auto search = std::exchange(m_searches.front(), nullptr);
            m_searches.pop_front();
            --m_startedCount;
            m_ended.push_back(search);
            m_foundBefore += search->foundCount();
            startNext();
        } else {
            return;
        }
        if (turn.elapsed() >= longestTurn) {
            QMetaObject::invokeMethod(this, &SearchQueue::handOver, Qt::QueuedConnection);
            return;
        }
    }
    endIfDone();
}

void SearchQueue::note(const VideoSearch::Result &result)
{
    if (result.leftOut.isEmpty())
        return;
    if (m_leftOut.isEmpty())
        m_firstLeftOut = result.leftOut.first();
    for (const QString &path : result.leftOut)
        m_leftOut << path; // once, though it may be dropped again and again
    m_isSilence = m_isSilence && result.isSilence;
    Q_EMIT noticeChanged();
}

void SearchQueue::endIfDone()
{
    if (!m_searches.empty())
        return;
    m_watch.stop();
    m_foundBefore = 0;
    std::erase_if(m_ended, [](const auto &search) { return search.expired(); });
    setLong(false);
    setProgress(0, {});
}

void SearchQueue::watch()
{
    int foundCount = m_foundBefore;
    QByteArray awaited; // for the earliest search, which keeps the others waiting
    for (std::size_t i = 0; i < m_startedCount; ++i) {
        m_searches[i]->watch();
        foundCount += m_searches[i]->foundCount();
        if (awaited.isEmpty())
            awaited = m_searches[i]->awaited();
    }
    setProgress(foundCount, awaited);
    if (m_time.hasExpired(longTime.count()))
        setLong(true);
}

void SearchQueue::setLong(bool isLong)
{
    if (std::exchange(m_isLong, isLong) != isLong)
        Q_EMIT isLongChanged();
}

void SearchQueue::setProgress(int foundCount, const QByteArray &awaited)
{
    if (std::exchange(m_foundCount, foundCount) != foundCount)
        Q_EMIT foundCountChanged();
    if (std::exchange(m_awaited, awaited) != awaited)
        Q_EMIT awaitedChanged();
}

void SearchQueue::stop()
{
    for (const auto &search : m_searches)
        search->stop();
    m_foundBefore = 0;
    m_time.start();
    setLong(false);
    // Not at once: who is handed something over may be who stops.
    QMetaObject::invokeMethod(this, &SearchQueue::handOver, Qt::QueuedConnection);
}

QString SearchQueue::awaitedPlace() const
{
    return shownPath(withoutTrailingSlashes(m_awaited));
}

QString SearchQueue::legibleAwaitedName() const
{
    return m_awaited.isEmpty() ? QString() : legible(shownPath(lastPathComponent(m_awaited)));
}

QString SearchQueue::notice() const
{
    return m_leftOut.isEmpty() ? QString() : quoted(m_firstLeftOut) + verdict();
}

QString SearchQueue::legiblePlace() const
{
    return m_leftOut.isEmpty() ? QString() : quoted(legible(m_firstLeftOut));
}

QString SearchQueue::verdict() const
{
    if (m_leftOut.isEmpty())
        return {};
    // What does not answer cannot be read either.
    const QString why = m_isSilence ? u"did not answer"_s : u"could not be read"_s;
    const auto others = m_leftOut.size() - 1;
    if (others == 0)
        return u" %1 and was left out."_s.arg(why);
    return u" and %1 more %2 and were left out."_s.arg(others).arg(why);
}

void SearchQueue::clearNotice()
{
    m_leftOut.clear();
    m_isSilence = true;
    Q_EMIT noticeChanged();
}

bool SearchQueue::hasThreads() const
{
    return !m_searches.empty()
           || std::ranges::any_of(m_ended, [](const auto &search) { return !search.expired(); });
}

} // namespace quorvale
