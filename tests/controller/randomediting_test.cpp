// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "queuepair.h"
#include "support/leftovers.h"
#include "support/testclass.h"

#include <QTest>

#include <unistd.h>

using namespace quorvale;
using namespace quorvale::test;
using namespace Qt::StringLiterals;

// Random sequences of what a user may do, before, during and after batches, applied to the queue
// and to a plain model of it: both have to agree after every step. Each search looks at a folder of
// its own, which does not answer until the search is to end. In some, all that can stand in the way
// of a conversion does so now and then. The seed is printed; with the same one in
// QUORVALE_TEST_SEED the same sequences are tried again.

class RandomEditingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        bool isGiven = false;
        m_seed = qEnvironmentVariableIntValue("QUORVALE_TEST_SEED", &isGiven);
        if (!isGiven)
            m_seed = static_cast<int>(std::random_device()() & 0x7fffffffU);
        qInfo("QUORVALE_TEST_SEED=%d", m_seed);
        qputenv(SlowDisk::variable, m_disk.steering().toUtf8());
        // What Qt makes once and keeps is there from now on.
        Queue queue;
        queue.setConversions(Script());
        queue.add({u"a.mkv"_s});
        QVERIFY(queue.runBatch());
    }

    void withoutBatches() { tryOut(3000, 25, QueuePair::Work::none); }
    void withBatches() { tryOut(200, 20, QueuePair::Work::batches); }
    void withSearches() { tryOut(500, 30, QueuePair::Work::searches); }
    void withBatchesAndSearches() { tryOut(100, 30, QueuePair::Work::batchesAndSearches); }
    void withFaults()
    {
        // Some hundreds where nothing else is asked for.
        tryOut(100, 40, QueuePair::Work::allWithFaults,
               qEnvironmentVariableIntValue("QUORVALE_TEST_CONVERSIONS"));
    }

private:
    // At least so many of each.
    void tryOut(int sequences, int steps, QueuePair::Work work, qsizetype leastConversions = 0)
    {
        const Leftovers leftovers;
        qsizetype conversions = 0;
        qsizetype searches = 0;
        qsizetype failedBeginnings = 0;
        qint64 memoryEarly = 0;
        int sequence = 0;
        for (; sequence < sequences || conversions < leastConversions; ++sequence) {
            if (sequence == sequences / 2)
                memoryEarly = residentMemory();
            // Each sequence has a seed of its own, so that one alone can be tried again.
            std::seed_seq seed{m_seed, sequence, static_cast<int>(work)};
            Random random(seed);
            QueuePair pair(random, m_disk, work);
            QString difference;
            for (int i = 0; difference.isEmpty() && i < steps; ++i)
                difference = pair.step();
            if (difference.isEmpty())
                difference = pair.end();
            QVERIFY2(
                difference.isEmpty(),
                qPrintable(u"Seed %1, sequence %2: %3 after %4"_s.arg(m_seed).arg(sequence).arg(
                    difference, pair.log())));
            conversions += pair.conversions();
            searches += pair.searches();
            failedBeginnings += pair.failedBeginnings();
        }
        const qint64 grown = residentMemory() - memoryEarly;
        const bool isWithBoth = work >= QueuePair::Work::batchesAndSearches;
        QCOMPARE(conversions > 0, work == QueuePair::Work::batches || isWithBoth);
        QCOMPARE(searches > 0, work == QueuePair::Work::searches || isWithBoth);
        QCOMPARE(failedBeginnings > 0, work == QueuePair::Work::allWithFaults);
        QCOMPARE(m_disk.questions(::getpid()) > 0, searches > 0);
        QCOMPARE(m_disk.questionsOfMainThread(::getpid()), QStringList());
        qInfo("%d sequences with %lld conversions and %lld searches, %lld bytes more", sequence,
              static_cast<long long>(conversions), static_cast<long long>(searches),
              static_cast<long long>(grown));
        QCOMPARE(leftovers.found(), QString());
        if (memoryTells)
            QVERIFY2(grown < 4 * 1024 * 1024, qPrintable(QString::number(grown)));
    }

    SlowDisk m_disk;
    int m_seed = 0;
};

QUORVALE_TEST(RandomEditingTest)
#include "randomediting_test.moc"
