// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "controller/converterviewmodel.h"
#include "support/clips.h"
#include "support/mediafacts.h"
#include "support/patience.h"
#include "support/queue.h"
#include "support/testclass.h"
#include "support/toolrun.h"

#include <QTest>

using namespace quorvale;
using namespace quorvale::test;
using namespace Qt::StringLiterals;

class RealCancellationTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { useMachineTools(); }

    void aCancelledConversionLeavesAPlayableFile()
    {
        // Its conversion lasts far longer than the wait for its first progress.
        constexpr int seconds = 900;
        const QString clip = m_folder.filePath(u"a long clip.mp4"_s);
        repeatClip(makeClip(u"h264.mp4"_s, QDir(m_folder.path())), seconds, clip);
        QVERIFY(mediaFacts(clip).duration.value_or(0.0) > seconds - 1.0);
        Queue queue(Tools::machine);
        queue.model().setSettings({.codec = OutputCodec::hevc});
        QVERIFY(queue.drop(clip, 1));
        queue.model().start();
        QTRY_VERIFY_WITH_TIMEOUT(queue.job(0).progress > 0.0, patience);

        queue.model().cancel();

        QVERIFY(queue.awaitEnd());
        // ffmpeg takes the interrupt, finishes the file and ends with a status of its own.
        const JobState &state = queue.job(0).state;
        QVERIFY(state.is(JobState::Case::failed));
        QVERIFY2(state.message().contains(u"received signal 2"_s), qPrintable(state.message()));
        const MediaFacts facts = mediaFacts(queue.outputPath(u"a long clip_converted.mp4"_s));
        QCOMPARE(facts.videoCodec, u"hevc"_s);
        QCOMPARE(facts.audioCodec, u"aac"_s);
        QVERIFY(facts.duration);
        QVERIFY(*facts.duration > 0.0);
        QVERIFY(*facts.duration < seconds / 2.0);
    }

private:
    QTemporaryDir m_folder;
};

QUORVALE_TEST(RealCancellationTest)
#include "realcancellation_test.moc"
