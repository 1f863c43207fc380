// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "controller/searchqueue.h"
#include "support/patience.h"

#include <QTest>

namespace quorvale::test {

/// Waits until everything that was asked for is found and handed over; false when that takes too
/// long.
[[nodiscard]] inline bool awaitSearches(const SearchQueue &searches)
{
    return QTest::qWaitFor([&] { return !searches.hasThreads(); }, patience);
}

/// What searches hand over from now on, addition by addition.
class FoundVideos
{
public:
    explicit FoundVideos(SearchQueue &searches)
    {
        QObject::connect(&searches, &SearchQueue::found, &searches,
                         [this](const QList<SourceFile> &videos) {
                             names.emplaceBack();
                             paths.emplaceBack();
                             for (const SourceFile &video : videos) {
                                 names.last() << video.url().fileName();
                                 paths.last() << video.url().toLocalFile();
                             }
                         });
    }

    FoundVideos(const FoundVideos &) = delete;
    FoundVideos &operator=(const FoundVideos &) = delete;

    QList<QStringList> names;
    QList<QStringList> paths;
};

} // namespace quorvale::test
