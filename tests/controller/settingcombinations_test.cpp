// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "controller/converterviewmodel.h"
#include "support/clips.h"
#include "support/conversionbench.h"
#include "support/mediafacts.h"
#include "support/toolrun.h"

#include <QHash>
#include <QTest>

using namespace quorvale;
using namespace quorvale::test;
using namespace Qt::StringLiterals;

// Not every audio codec may stand in every container, and newer versions of ffmpeg are less strict.
// What becomes of a combination is therefore told by the ffmpeg of the machine, asked directly.
class SettingCombinationsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        useMachineTools();
        for (const QString &name : {u"h264.mp4"_s, u"av1.mkv"_s, u"silent.mp4"_s})
            makeClip(name, QDir(m_folder.path()));
    }

    void everyCombinationEndsAsFFmpegDecides_data()
    {
        QTest::addColumn<QString>("clip");
        QTest::addColumn<OutputCodec>("codec");
        QTest::addColumn<EncodingGoal>("goal");
        QTest::addColumn<AudioMode>("audio");
        const auto add = [](const QString &clip, OutputCodec codec, EncodingGoal goal,
                            AudioMode audio) {
            const QString row =
                QStringList{clip, rawValue(codec), rawValue(goal), rawValue(audio)}.join(u", "_s);
            QTest::newRow(qPrintable(row)) << clip << codec << goal << audio;
        };
        for (const OutputCodec codec : allCases<OutputCodec>()) {
            for (const AudioMode audio : allCases<AudioMode>()) {
                for (const EncodingGoal goal : allCases<EncodingGoal>())
                    add(u"h264.mp4"_s, codec, goal, audio);
                add(u"av1.mkv"_s, codec, EncodingGoal::balanced, audio);
            }
        }
    }
    void everyCombinationEndsAsFFmpegDecides()
    {
        QFETCH(const QString, clip);
        QFETCH(const OutputCodec, codec);
        QFETCH(const EncodingGoal, goal);
        QFETCH(const AudioMode, audio);
        ConversionBench bench;
        bench.controller().setSettings(
            {.codec = codec, .audio = audio, .goal = goal, .useHardware = false});
        QVERIFY(bench.drop(path(clip), 1));

        QVERIFY(bench.runBatch());

        const QString complaint = complaintAbout(clip, codec, audio);
        const JobState state = bench.stateOf(clip);
        if (complaint.isEmpty()) {
            QVERIFY(isCompleted(state));
            const MediaFacts facts = mediaFacts(output(bench, clip, codec));
            QCOMPARE(facts.videoCodec, videoCodec(codec));
            QCOMPARE(facts.audioCodec, audioCodec(clip, audio));
        } else {
            QVERIFY(state.is(JobState::Case::failed));
            QVERIFY2(state.message().contains(complaint), qPrintable(state.message()));
        }
    }

    void aRefusedFileDoesNotEndTheBatch_data()
    {
        QTest::addColumn<QString>("first");
        QTest::addColumn<QString>("second");
        QTest::addColumn<OutputCodec>("codec");
        QTest::addColumn<AudioMode>("audio");
        QTest::newRow("Opus into QuickTime")
            << u"av1.mkv"_s << u"h264.mp4"_s << OutputCodec::proRes422 << AudioMode::copy;
        QTest::newRow("PCM into MP4")
            << u"h264.mp4"_s << u"silent.mp4"_s << OutputCodec::h264 << AudioMode::pcm;
    }
    void aRefusedFileDoesNotEndTheBatch()
    {
        QFETCH(const QString, first);
        QFETCH(const QString, second);
        QFETCH(const OutputCodec, codec);
        QFETCH(const AudioMode, audio);
        ConversionBench bench;
        bench.controller().setSettings({.codec = codec, .audio = audio});
        QVERIFY(bench.drop(path(first), 1));
        QVERIFY(bench.drop(path(second), 1));

        QVERIFY(bench.runBatch());

        const QString complaint = complaintAbout(first, codec, audio);
        QCOMPARE(bench.stateOf(first).is(JobState::Case::failed), !complaint.isEmpty());
        QVERIFY(bench.stateOf(first).message().contains(complaint));
        QVERIFY(isCompleted(bench.stateOf(second)));
        QCOMPARE(mediaFacts(output(bench, second, codec)).videoCodec, videoCodec(codec));
    }

    // No version of ffmpeg lets Opus into QuickTime, and every version lets AAC into MP4: so the
    // expectations above are known to go both ways.
    void ffmpegRefusesSomeCombinationsOnly()
    {
        QVERIFY(!complaintAbout(u"av1.mkv"_s, OutputCodec::proRes422, AudioMode::copy).isEmpty());
        QVERIFY(complaintAbout(u"h264.mp4"_s, OutputCodec::h264, AudioMode::aac).isEmpty());
    }

private:
    QString path(const QString &clip) const { return m_folder.filePath(clip); }

    static QString extension(OutputCodec codec) { return isProRes(codec) ? u".mov"_s : u".mp4"_s; }

    static QString output(const ConversionBench &bench, const QString &clip, OutputCodec codec)
    {
        const QString baseName = clip.first(clip.indexOf(u'.'));
        return bench.outputs().filePath(baseName + u"_converted"_s + extension(codec));
    }

    static QString videoCodec(OutputCodec codec)
    {
        if (isProRes(codec))
            return u"prores"_s;
        return codec == OutputCodec::hevc ? u"hevc"_s : u"h264"_s;
    }

    QString audioCodec(const QString &clip, AudioMode audio) const
    {
        if (audio == AudioMode::copy)
            return mediaFacts(path(clip)).audioCodec;
        return audio == AudioMode::aac ? u"aac"_s : u"pcm_s24le"_s;
    }

    // What ffmpeg says when it is to put the clip's audio into the container, beside a video that
    // every container takes; empty when it does so.
    QString complaintAbout(const QString &clip, OutputCodec codec, AudioMode audio)
    {
        const QString encoder = audio == AudioMode::copy ? u"copy"_s : audioCodec(clip, audio);
        const QString question = clip + u' ' + encoder + extension(codec);
        if (const auto known = m_complaints.constFind(question); known != m_complaints.constEnd())
            return *known;
        const ToolRun run = runFFmpeg({u"-i"_s, path(clip), u"-c:v"_s, u"mpeg4"_s, u"-c:a"_s,
                                       encoder, path(u"attempt"_s + extension(codec))});
        const QString complaint = run.succeeded ? QString() : reason(run.errors);
        m_complaints[question] = complaint;
        return complaint;
    }

    // The reason stands in the line before the news of the failure, behind a tag whose address
    // differs from run to run.
    static QString reason(const QByteArray &errors)
    {
        const QList<QByteArray> lines = errors.split('\n');
        for (qsizetype i = 1; i < lines.size(); ++i) {
            if (!lines[i].contains("Could not write header"))
                continue;
            const QString line = QString::fromUtf8(lines[i - 1]);
            return line.sliced(line.indexOf(u"] "_s) + 2);
        }
        qFatal("ffmpeg failed for an unexpected reason: %s", errors.constData());
    }

    QTemporaryDir m_folder;
    QHash<QString, QString> m_complaints;
};

QTEST_GUILESS_MAIN(SettingCombinationsTest)
#include "settingcombinations_test.moc"
