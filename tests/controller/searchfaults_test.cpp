// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "support/filetree.h"
#include "support/scarcity.h"
#include "support/searches.h"
#include "support/slowdisk.h"
#include "support/testclass.h"

#include <QDir>

#include <cerrno>

#include <unistd.h>

using namespace quorvale;
using namespace quorvale::test;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

// What a search makes of places that cannot be looked at, and of a system that has no thread for
// it. This program has the stand-ins of tests/fakes/slowdisk.cpp and scarcity.cpp in itself.
class SearchFaultsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_disk = std::make_unique<SlowDisk>();
        qputenv(SlowDisk::variable, m_disk->steering().toUtf8());
        for (const QString &folder : {u"videos/110"_s, u"videos/111"_s, u"videos/112"_s})
            QVERIFY(QDir(m_disk->path()).mkpath(folder));
        write(m_disk->path(u"videos/110/10.mkv"_s), {});
        write(m_disk->path(u"videos/111/9.mkv"_s), {});
    }

    void cleanup()
    {
        m_disk->answerAtOnce();
        QCOMPARE(m_disk->questionsOfMainThread(::getpid()), QStringList());
        m_disk.reset();
    }

    // However many there are: this one is asked when there are as many threads as may wait.
    void aHealthyFolderAmongSilentOnesIsFound()
    {
        constexpr int healthy = 3;
        QList<QList<QUrl>> additions;
        QStringList silent;
        for (int i = 0; i <= 20; ++i) {
            const QString name = u"silent/%1"_s.arg(i);
            QVERIFY(QDir(m_disk->path()).mkpath(name));
            additions << QList{QUrl::fromLocalFile(m_disk->path(name))};
            silent << name;
        }
        silent.removeAt(healthy);
        write(m_disk->path(u"silent/%1/3.mkv"_s.arg(healthy)), {});
        SearchQueue searches({.untilOvertaken = 10ms, .untilLeftOut = 2s});
        const FoundVideos found(searches);
        m_disk->hang(silent);
        searches.search(additions);
        QTRY_COMPARE_WITH_TIMEOUT(found.names.size(), additions.size(), patience);
        for (int i = 0; i < additions.size(); ++i)
            QCOMPARE(found.names[i], i == healthy ? QStringList{u"3.mkv"_s} : QStringList());
        QCOMPARE(searches.notice(), u"“%1” and 19 more did not answer and were left out."_s.arg(
                                        m_disk->path(silent.first())));
        m_disk->answerAtOnce(); // what was left behind ends
        QVERIFY(awaitSearches(searches));
    }

    // Nor is what no thread is left for called silent.
    void aSearchOfThousandsOfSilentPlacesEnds()
    {
        m_disk->hang();
        const auto search = std::make_shared<VideoSearch>(
            QList<QList<QUrl>>(2000, {videos()}),
            SearchPatience{.untilOvertaken = 1ms, .untilLeftOut = 20ms}, [] {});
        search->start();
        qsizetype silent = 0;
        qsizetype unread = 0;
        while (!search->isDone()) {
            search->watch();
            while (const auto result = search->take())
                ++(result->isSilence ? silent : unread);
            QTest::qSleep(1);
        }
        QCOMPARE(silent, 256);
        QCOMPARE(unread, 2000 - 256);
        m_disk->answerAtOnce();
        QTRY_COMPARE_WITH_TIMEOUT(search.use_count(), 1, patience);
    }

    void withoutThreadsASearchEnds()
    {
        SearchQueue searches({.untilOvertaken = 50ms, .untilLeftOut = 1s});
        const FoundVideos found(searches);
        {
            const FewThreads none;
            searches.search({{videos()}});
            QTRY_VERIFY_WITH_TIMEOUT(none.refusals() > 1, patience);
        }
        QList<QStringList> expected{{u"9.mkv"_s, u"10.mkv"_s}};
        QTRY_COMPARE_WITH_TIMEOUT(found.names, expected, patience);
        QCOMPARE(searches.notice(), QString());
        const FewThreads none;
        searches.search({{videos()}});
        expected << QStringList();
        QTRY_COMPARE_WITH_TIMEOUT(found.names, expected, patience);
        QCOMPARE(searches.verdict(), u" could not be read and was left out."_s);
    }

    void whatCannotBeReadIsLeftOut_data()
    {
        QTest::addColumn<QByteArray>("function");
        QTest::addColumn<int>("error");
        QTest::addColumn<QStringList>("places");
        QTest::addColumn<QString>("verdict"); // on the first of them
        QTest::addColumn<QStringList>("expected");
        const QStringList one{u"videos/110"_s};
        const QStringList three{u"videos/110"_s, u"videos/111"_s, u"videos/112"_s};
        const QString unread = u" could not be read and was left out."_s;
        const QStringList others{u"9.mkv"_s};
        QTest::newRow("no permission") << "opendir"_ba << EACCES << one << unread << others;
        QTest::newRow("breaks down") << "readdir"_ba << EIO << one << unread << others;
        QTest::newRow("gone meanwhile") << "opendir"_ba << ENOENT << one << QString() << others;
        QTest::newRow("several") << "opendir"_ba << EIO << three
                                 << u" and 2 more could not be read and were left out."_s
                                 << QStringList();
        const QStringList all{u"videos"_s};
        QTest::newRow("no descriptor") << "opendir"_ba << EMFILE << all << unread << QStringList();
        QTest::newRow("says not what it is") << "stat"_ba << EIO << all << unread << QStringList();
        QTest::newRow("not there") << "stat"_ba << ENOENT << all << QString() << QStringList();
    }

    void whatCannotBeReadIsLeftOut()
    {
        QFETCH(const QByteArray, function);
        QFETCH(const int, error);
        QFETCH(const QStringList, places);
        QFETCH(const QString, verdict);
        for (int i = 0; i < 9; ++i)
            write(m_disk->path(u"videos/110/b%1.mkv"_s.arg(i)), {});
        SearchQueue searches;
        const FoundVideos found(searches);
        m_disk->fail(error, function, places);
        for (int i = 0; i < 2; ++i) { // what is said of the second is the same
            searches.search({{videos()}});
            QVERIFY(awaitSearches(searches));
        }
        QFETCH(const QStringList, expected);
        QCOMPARE(found.names, (QList{expected, expected}));
        QCOMPARE(searches.verdict(), verdict);
        const QString place = u'“' + m_disk->path(places.first()) + u'”';
        QCOMPARE(searches.notice(), verdict.isEmpty() ? QString() : place + verdict);
    }

private:
    QUrl videos() const { return QUrl::fromLocalFile(m_disk->path(u"videos"_s)); }

    std::unique_ptr<SlowDisk> m_disk;
};

QUORVALE_TEST(SearchFaultsTest)
#include "searchfaults_test.moc"
