// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "controller/converterviewmodel.h"
#include "support/clips.h"
#include "support/conversionbench.h"
#include "support/mediafacts.h"
#include "support/testclass.h"
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

        const auto [complaint, audioCodec] = verdictOn(clip, codec, audio);
        const JobState state = bench.stateOf(clip);
        if (complaint.isEmpty()) {
            QVERIFY(isCompleted(state));
            const MediaFacts facts = mediaFacts(output(bench, clip, codec));
            QCOMPARE(facts.videoCodec, videoCodec(codec));
            QCOMPARE(facts.audioCodec, audioCodec);
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

        const QString complaint = verdictOn(first, codec, audio).complaint;
        QCOMPARE(bench.stateOf(first).is(JobState::Case::failed), !complaint.isEmpty());
        QVERIFY(bench.stateOf(first).message().contains(complaint));
        QVERIFY(isCompleted(bench.stateOf(second)));
        QCOMPARE(mediaFacts(output(bench, second, codec)).videoCodec, videoCodec(codec));
    }

    // No version of ffmpeg lets Opus into QuickTime, and every version lets AAC into MP4: so the
    // expectations above are known to go both ways.
    void ffmpegRefusesSomeCombinationsOnly()
    {
        QVERIFY(
            !verdictOn(u"av1.mkv"_s, OutputCodec::proRes422, AudioMode::copy).complaint.isEmpty());
        QVERIFY(verdictOn(u"h264.mp4"_s, OutputCodec::h264, AudioMode::aac).complaint.isEmpty());
    }

private:
    // What ffmpeg does when it is to put a clip's audio into a container.
    struct Verdict
    {
        QString complaint;  // empty when it does so
        QString audioCodec; // as ffprobe calls it then: 6.1 takes 24-bit PCM in MP4 for 32-bit
    };

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

    static QString encoder(AudioMode audio)
    {
        if (audio == AudioMode::copy)
            return u"copy"_s;
        return audio == AudioMode::aac ? u"aac"_s : u"pcm_s24le"_s;
    }

    // Asks with a video beside it that every container takes.
    Verdict verdictOn(const QString &clip, OutputCodec codec, AudioMode audio)
    {
        const QString question = clip + u' ' + encoder(audio) + extension(codec);
        if (const auto known = m_verdicts.constFind(question); known != m_verdicts.constEnd())
            return *known;
        const QString attempt = path(u"attempt"_s + extension(codec));
        const ToolRun run = runFFmpeg(
            {u"-i"_s, path(clip), u"-c:v"_s, u"mpeg4"_s, u"-c:a"_s, encoder(audio), attempt});
        Verdict verdict;
        if (run.succeeded)
            verdict.audioCodec = mediaFacts(attempt).audioCodec;
        else
            verdict.complaint = reason(run.errors);
        m_verdicts[question] = verdict;
        return verdict;
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
    QHash<QString, Verdict> m_verdicts;
};

QUORVALE_TEST(SettingCombinationsTest)
#include "settingcombinations_test.moc"
