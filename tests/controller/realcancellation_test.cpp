// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "controller/converterviewmodel.h"
#include "support/clips.h"
#include "support/conversionbench.h"
#include "support/mediafacts.h"
#include "support/patience.h"
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
    void initTestCase()
    {
        useMachineTools();
        m_clip = makeClip(u"h264.mp4"_s, QDir(m_folder.path()));
        m_longClip = m_folder.filePath(u"a long clip.mp4"_s);
        repeatClip(m_clip, longClipSeconds, m_longClip);
    }

    void theLongClipIsLong()
    {
        const MediaFacts facts = mediaFacts(m_longClip);
        QVERIFY(facts.duration);
        QVERIFY(*facts.duration > longClipSeconds - 1.0);
    }

    void aCancelledConversionLeavesAPlayableFile()
    {
        ConversionBench bench;
        QVERIFY(startLongConversion(bench));

        bench.controller().cancel();

        QVERIFY(bench.awaitEnd());
        const ConversionJob &job = bench.controller().jobs().first();
        // ffmpeg takes the interrupt, finishes the file and ends with a status of its own.
        QVERIFY(job.state.is(JobState::Case::failed));
        QVERIFY2(job.state.message().contains(u"received signal 2"_s),
                 qPrintable(job.state.message()));
        const MediaFacts facts = mediaFacts(bench.outputs().filePath(longOutput));
        QCOMPARE(facts.videoCodec, u"hevc"_s);
        QCOMPARE(facts.audioCodec, u"aac"_s);
        QVERIFY(facts.duration);
        QVERIFY(*facts.duration > 0.0);
        QVERIFY(*facts.duration < longClipSeconds / 2.0);
    }

    void aCancelledBatchLeavesTheNextJobWaiting()
    {
        ConversionBench bench;
        QVERIFY(startLongConversion(bench));

        bench.controller().cancel();

        QVERIFY(bench.awaitEnd());
        QVERIFY(!bench.controller().alertMessage());
        const ConversionJob &next = bench.controller().jobs().last();
        QVERIFY(next.state.is(JobState::Case::waiting));
        QCOMPARE(next.progress, 0.0);
        QCOMPARE(bench.outputs().entryList(QDir::Files), QStringList(longOutput));
    }

    void anotherBatchCanFollow()
    {
        ConversionBench bench;
        QVERIFY(startLongConversion(bench));
        bench.controller().cancel();
        QVERIFY(bench.awaitEnd());
        const QUuid cancelled = bench.controller().jobs().first().id();
        bench.controller().remove(cancelled);

        QVERIFY(bench.runBatch());

        QVERIFY(isCompleted(bench.stateOf(u"h264.mp4"_s)));
        const MediaFacts facts = mediaFacts(bench.outputs().filePath(u"h264_converted.mp4"_s));
        QCOMPARE(facts.videoCodec, u"hevc"_s);
    }

private:
    // Its conversion lasts far longer than the wait for its first progress.
    static constexpr int longClipSeconds = 900;

    // Whether the long clip, with the short one waiting behind it, is being converted.
    bool startLongConversion(ConversionBench &bench) const
    {
        ConverterViewModel &controller = bench.controller();
        controller.setSettings({.codec = OutputCodec::hevc});
        if (!bench.drop(m_longClip, 1) || !bench.drop(m_clip, 1))
            return false;
        controller.start();
        return QTest::qWaitFor(
            [&] {
                const ConversionJob &job = controller.jobs().first();
                return job.state.is(JobState::Case::converting) && job.progress > 0.0;
            },
            patience);
    }

    const QString longOutput = u"a long clip_converted.mp4"_s;

    QTemporaryDir m_folder;
    QString m_clip;
    QString m_longClip;
};

QUORVALE_TEST(RealCancellationTest)
#include "realcancellation_test.moc"
