// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "support/filetree.h"
#include "support/searches.h"
#include "support/testclass.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTest>

using namespace quorvale;
using namespace quorvale::test;
using namespace Qt::StringLiterals;

class SearchQueueTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void saysOfEachAdditionWhatWasFoundSortedByName()
    {
        const FileTree tree;
        tree.addFiles({u"one/clip10.mkv"_s, u"one/deep/clip9.mkv"_s, u"two/b.mp4"_s,
                       u"two/letter.txt"_s, u"a.mp4"_s});
        SearchQueue searches;
        const FoundVideos found(searches);
        searches.search({{tree.url(u"one"_s)}, {tree.url(u"two"_s), tree.url(u"a.mp4"_s)}});
        searches.search({{tree.url(u"two/letter.txt"_s)}, {}});
        QVERIFY(awaitSearches(searches));
        QCOMPARE(found.names,
                 (QList<QStringList>{
                     {u"clip9.mkv"_s, u"clip10.mkv"_s}, {u"a.mp4"_s, u"b.mp4"_s}, {}, {}}));
        QCOMPARE(searches.notice(), QString());
    }

    void handsOverInTheOrderOfAskingHoweverLongEachTakes()
    {
        constexpr int folders = 40;
        const FileTree large;
        for (int i = 0; i < 3000; ++i)
            large.addFile(u"%1/%2.mp4"_s.arg(i % folders).arg(i));
        const FileTree small;
        const QUrl clip = small.addFile(u"clip.mp4"_s);
        SearchQueue searches;
        const FoundVideos found(searches);
        QList<qsizetype> expected;
        for (int i = 0; i < 10; ++i) { // more than go on at the same time
            searches.search({{large.root()}});
            searches.search({{clip}, {clip}});
            expected << 3000 << 1 << 1;
        }
        QVERIFY(awaitSearches(searches));
        QList<qsizetype> counts;
        for (const QStringList &names : found.names)
            counts << names.size();
        QCOMPARE(counts, expected);
    }

    void equalNamesKeepTheOrderOfTheirPlaces()
    {
        const FileTree tree;
        const QStringList paths{u"z/same.mp4"_s, u"a/same.mp4"_s, u"a/b/same.mp4"_s,
                                u"a.mp4/same.mp4"_s};
        tree.addFiles(paths);
        SearchQueue searches;
        const FoundVideos found(searches);
        searches.search({{tree.root()}});
        QVERIFY(awaitSearches(searches));
        QCOMPARE(found.paths.last(),
                 (QStringList{tree.path(u"a.mp4"_s), tree.path(u"a/b/same.mp4"_s),
                              tree.path(u"a/same.mp4"_s), tree.path(u"a.mp4/same.mp4"_s),
                              tree.path(u"z/same.mp4"_s)}));
    }

    void aSearchThatIsStoppedAtAnyTimeHandsOverWhatIsWhole()
    {
        const FileTree tree;
        tree.addFiles({u"a/1.mp4"_s, u"b/2.mp4"_s, u"b/3.mp4"_s});
        SearchQueue searches;
        const FoundVideos found(searches);
        const QStringList one{u"1.mp4"_s};
        const QStringList other{u"2.mp4"_s, u"3.mp4"_s};
        for (int i = 0; i < 20; ++i) {
            searches.search({{tree.url(u"a"_s)}, {tree.url(u"b"_s)}});
            if (i % 2 == 0)
                QTest::qSleep(1); // it has found all, but nobody was there to take it
            searches.stop();
        }
        QVERIFY(awaitSearches(searches));
        for (const QStringList &names : std::as_const(found.names))
            QVERIFY(names == one || names == other);

        searches.search({{tree.url(u"b"_s)}});
        QVERIFY(awaitSearches(searches));
        QCOMPARE(found.names.last(), other);
    }

    void whoIsHandedOverToMayStop()
    {
        const FileTree tree;
        tree.addFiles({u"a/1.mp4"_s, u"b/2.mp4"_s});
        SearchQueue searches;
        const FoundVideos found(searches);
        connect(&searches, &SearchQueue::found, &searches, &SearchQueue::stop);
        searches.search({{tree.url(u"a"_s)}, {tree.url(u"b"_s)}});
        QVERIFY(awaitSearches(searches));
        QCOMPARE(found.names.first(), QStringList{u"1.mp4"_s});
        QVERIFY(found.names.size() <= 2);
    }

    void aQueueThatEndsDuringASearchHandsOverNothing()
    {
        const FileTree tree;
        tree.addFile(u"1.mp4"_s);
        int handedOver = 0;
        for (int i = 0; i < 20; ++i) {
            SearchQueue searches;
            connect(&searches, &SearchQueue::found, this, [&] { ++handedOver; });
            searches.search({{tree.root()}});
        }
        QCoreApplication::processEvents();
        QCOMPARE(handedOver, 0);
    }

    void aShortSearchIsNotSpokenOf()
    {
        const FileTree tree;
        SearchQueue searches;
        const QSignalSpy changes(&searches, &SearchQueue::isLongChanged);
        const QUrl clip = tree.addFile(u"1.mp4"_s);
        QElapsedTimer timer;
        do { // unless this machine made it a long one
            timer.start();
            searches.search({{clip}});
            QVERIFY(awaitSearches(searches));
        } while (timer.elapsed() > 400);
        const qsizetype before = changes.size();
        // Had it been counted from here, it would be long by now.
        QTest::qWait(700);
        QVERIFY(!searches.isLong());
        QCOMPARE(changes.size(), before);
    }
};

QUORVALE_TEST(SearchQueueTest)
#include "searchqueue_test.moc"
