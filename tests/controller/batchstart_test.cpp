// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "support/queue.h"
#include "support/testclass.h"

#include <QSignalSpy>
#include <QTest>

using namespace quorvale;
using namespace quorvale::test;
using namespace Qt::StringLiterals;

using enum JobState::Case;

namespace {

const QString nothingToConvert = u"Add or re-queue at least one video first."_s;
const QString noDestination = u"Choose an output folder first."_s;
const QString noFFmpeg = u"FFmpeg was not found. Install it with Homebrew: brew install ffmpeg"_s;

} // namespace

class BatchStartTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void anEmptyListIsSaidFirst()
    {
        Queue queue;
        queue.choose(std::nullopt);
        queue.tools().removeTool(u"ffmpeg"_s);
        queue.model().start();
        QVERIFY(queue.model().alertMessage() == nothingToConvert);
        QVERIFY(!queue.model().isConverting());
    }

    void aListOfCompletedJobsIsLikeAnEmptyOne()
    {
        Queue queue;
        queue.setConversions(Script());
        queue.add({u"1.mkv"_s});
        QVERIFY(queue.runBatch());
        QVERIFY(!queue.model().alertMessage());
        queue.model().start();
        QVERIFY(queue.model().alertMessage() == nothingToConvert);
        QVERIFY(!queue.model().isConverting());
    }

    void theMissingFolderIsSaidSecond()
    {
        Queue queue;
        queue.choose(std::nullopt);
        queue.tools().removeTool(u"ffmpeg"_s);
        queue.add({u"1.mkv"_s});
        queue.model().start();
        QVERIFY(queue.model().alertMessage() == noDestination);
        QVERIFY(!queue.model().isConverting());
    }

    void theMissingToolIsSaidThird()
    {
        Queue queue;
        queue.tools().removeTool(u"ffmpeg"_s);
        queue.add({u"1.mkv"_s});
        queue.model().start();
        QVERIFY(queue.model().alertMessage() == noFFmpeg);
        QVERIFY(!queue.model().isConverting());
        QCOMPARE(queue.state(0), waiting);
    }

    void theSameTextTwiceIsRaisedTwice()
    {
        Queue queue;
        const QSignalSpy changes(&queue.model(), &ConverterViewModel::alertMessageChanged);
        queue.model().start();
        queue.model().clearAlert();
        QVERIFY(!queue.model().alertMessage());
        queue.model().start();
        QCOMPARE(changes.size(), 3);
        QVERIFY(queue.model().alertMessage() == nothingToConvert);
    }

    void aStartDoesNotClearAnEarlierAlert()
    {
        Queue queue;
        queue.setConversions(Script());
        queue.model().start();
        queue.add({u"1.mkv"_s});
        QVERIFY(queue.runBatch());
        QVERIFY(queue.model().alertMessage() == nothingToConvert);
    }

    void aSecondStartDoesNothing()
    {
        Queue queue;
        queue.setConversions(Script());
        queue.add({u"1.mkv"_s});
        const QSignalSpy changes(&queue.model(), &ConverterViewModel::isConvertingChanged);
        queue.model().start();
        queue.model().start();
        QVERIFY(queue.awaitEnd());
        queue.model().clearCompleted();
        QCOMPARE(changes.size(), 2);
        QCOMPARE(queue.tools().runs(u"ffmpeg"_s).size(), 1);
        QVERIFY(!queue.model().alertMessage());
    }

    void aStartDuringARunSaysNothingEvenWithoutAFolder()
    {
        Queue queue;
        queue.setConversions(queue.tools().untilReleased());
        queue.add({u"1.mkv"_s});
        queue.model().start();
        queue.choose(std::nullopt);
        queue.model().start();
        QVERIFY(!queue.model().alertMessage());
        queue.tools().release();
        QVERIFY(queue.awaitEnd());
    }
};

QUORVALE_TEST(BatchStartTest)
#include "batchstart_test.moc"
