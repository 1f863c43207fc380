// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "videosearch.h"

#include <QElapsedTimer>
#include <QObject>
#include <QSet>
#include <QTimer>

#include <deque>
#include <memory>
#include <vector>

namespace quorvale {

/// The searches for videos that are going on, as the user sees them: as one. They go on at the same
/// time, and what they find is handed over in the order in which they were asked for. Main thread
/// only; no operation waits for a disk.
class SearchQueue : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool isLong READ isLong NOTIFY isLongChanged)
    Q_PROPERTY(int foundCount READ foundCount NOTIFY foundCountChanged)
    Q_PROPERTY(QString awaitedPlace READ awaitedPlace NOTIFY awaitedChanged)
    Q_PROPERTY(QString legibleAwaitedName READ legibleAwaitedName NOTIFY awaitedChanged)
    Q_PROPERTY(QString notice READ notice NOTIFY noticeChanged)
    Q_PROPERTY(QString legiblePlace READ legiblePlace NOTIFY noticeChanged)
    Q_PROPERTY(QString verdict READ verdict NOTIFY noticeChanged)

public:
    explicit SearchQueue(const SearchPatience &patience = {});

    /// Stops all searches without waiting for them.
    ~SearchQueue() override;

    /// Searches each of these lists of files and folders for videos. found() says of every one what
    /// was found, unless stop() is called before everything in it was looked at.
    void search(const QList<QList<QUrl>> &additions);

    /// Ends all searches. The lists of which everything was looked at are still handed over, soon;
    /// what was found for any other is dropped.
    Q_INVOKABLE void stop();

    /// Whether there has been a search for longer than half a second, and still is.
    bool isLong() const { return m_isLong; }

    /// How many videos were found since there have been searches, none of them stopped; brought up
    /// to date some times a second.
    int foundCount() const { return m_foundCount; }

    /// The path of a place that has not answered for a while and is waited for; empty when there is
    /// none. And its last component, legible().
    QString awaitedPlace() const;
    QString legibleAwaitedName() const;

    /// What was left out because it did not answer or could not be read, in a sentence; empty when
    /// nothing was.
    QString notice() const;

    /// The two parts of that sentence as they are shown: the first path, in quotes and legible(),
    /// and what is said of it.
    QString legiblePlace() const;
    QString verdict() const;

    /// Forgets what was left out, as when the user has read it.
    Q_INVOKABLE void clearNotice();

    /// Whether a thread of any search, stopped ones among them, is still at work or waits.
    bool hasThreads() const;

Q_SIGNALS:
    /// The videos found for one of the lists, sorted by name; in the order of the lists.
    void found(const QList<quorvale::SourceFile> &videos);
    void isLongChanged();
    void foundCountChanged();
    void awaitedChanged();
    void noticeChanged();

private:
    void startNext();
    void handOver();
    void note(const VideoSearch::Result &result);
    void watch();
    void endIfDone();
    void setLong(bool isLong);
    void setProgress(int foundCount, const QByteArray &awaited);

    const SearchPatience m_patience;
    std::deque<std::shared_ptr<VideoSearch>> m_searches; // in order; the first few have started
    std::size_t m_startedCount = 0;
    std::vector<std::weak_ptr<VideoSearch>> m_ended; // whose threads may not have
    int m_foundBefore = 0; // by searches that have ended, since the first of these began
    int m_foundCount = 0;
    QByteArray m_awaited; // a path
    bool m_isLong = false;
    QString m_firstLeftOut;
    QSet<QString> m_leftOut;
    bool m_isSilence = true; // nothing of that has answered
    QElapsedTimer m_time;    // since there have been searches
    QTimer m_watch;
    std::shared_ptr<SearchQueue *> m_self; // for what threads post; ends with this
};

} // namespace quorvale
