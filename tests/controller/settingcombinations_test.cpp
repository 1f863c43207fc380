// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "controller/converterviewmodel.h"
#include "support/clips.h"
#include "support/mediafacts.h"
#include "support/queue.h"
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
        for (const QString &name : {u"h264.mp4"_s, u"av1.mkv"_s})
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
        Queue queue(Tools::machine);
        queue.model().setSettings(
            {.codec = codec, .audio = audio, .goal = goal, .useHardware = false});
        QVERIFY(queue.drop(path(clip), 1));

        QVERIFY(queue.runBatch());

        const auto [complaint, audioCodec] = verdictOn(clip, codec, audio);
        const JobState state = queue.job(0).state;
        if (complaint.isEmpty()) {
            QVERIFY(isConverted(queue.job(0)));
            const MediaFacts facts = mediaFacts(output(queue, clip, codec));
            QCOMPARE(facts.videoCodec, videoCodec(codec));
            QCOMPARE(facts.audioCodec, audioCodec);
        } else {
            QVERIFY(state.is(JobState::Case::failed));
            QVERIFY2(state.message().contains(complaint), qPrintable(state.message()));
        }
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

    static QString output(const Queue &queue, const QString &clip, OutputCodec codec)
    {
        const QString baseName = clip.first(clip.indexOf(u'.'));
        return queue.outputs().filePath(baseName + u"_converted"_s + extension(codec));
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
