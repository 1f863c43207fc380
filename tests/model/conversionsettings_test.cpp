// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "model/conversionsettings.h"
#include "support/testclass.h"

#include <QTest>

using namespace quorvale;

class ConversionSettingsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void freshSettingsHaveTheirDefaults()
    {
        const ConversionSettings settings;
        QCOMPARE(settings.codec, OutputCodec::h264);
        QCOMPARE(settings.audio, AudioMode::aac);
        QCOMPARE(settings.goal, EncodingGoal::balanced);
        QCOMPARE(settings.useHardware, true);
        QCOMPARE(settings.quality, 76.0);
        QCOMPARE(settings.overwrite, false);
    }

    void audioFollowsEveryCodec_data()
    {
        QTest::addColumn<OutputCodec>("codec");
        QTest::addColumn<AudioMode>("before");
        QTest::addColumn<AudioMode>("after");
        for (const OutputCodec codec : allCases<OutputCodec>()) {
            const AudioMode natural = isProRes(codec) ? AudioMode::pcm : AudioMode::aac;
            for (const AudioMode before : allCases<AudioMode>()) {
                const AudioMode after = before == AudioMode::copy ? AudioMode::copy : natural;
                QTest::addRow("%s with %s", qPrintable(rawValue(codec)),
                              qPrintable(rawValue(before)))
                    << codec << before << after;
            }
        }
    }
    void audioFollowsEveryCodec()
    {
        QFETCH(const OutputCodec, codec);
        QFETCH(const AudioMode, before);
        QFETCH(const AudioMode, after);
        ConversionSettings settings;
        settings.audio = before;
        settings.chooseCodec(codec);
        QCOMPARE(settings.codec, codec);
        QCOMPARE(settings.audio, after);
    }

    void proResAndBackGivesAacAgain()
    {
        ConversionSettings settings;
        settings.chooseCodec(OutputCodec::proRes4444);
        QCOMPARE(settings.codec, OutputCodec::proRes4444);
        QCOMPARE(settings.audio, AudioMode::pcm);
        settings.chooseCodec(OutputCodec::h264);
        QCOMPARE(settings.codec, OutputCodec::h264);
        QCOMPARE(settings.audio, AudioMode::aac);
    }

    void copiedAudioSurvivesProResAndBack()
    {
        ConversionSettings settings;
        settings.audio = AudioMode::copy;
        settings.chooseCodec(OutputCodec::proRes422);
        QCOMPARE(settings.audio, AudioMode::copy);
        settings.chooseCodec(OutputCodec::h264);
        QCOMPARE(settings.audio, AudioMode::copy);
    }

    void choosingTheCurrentCodecStillAdaptsTheAudio()
    {
        ConversionSettings settings;
        settings.audio = AudioMode::pcm;
        settings.chooseCodec(OutputCodec::h264);
        QCOMPARE(settings.audio, AudioMode::aac);
    }

    void aCodecChangesNothingElse()
    {
        ConversionSettings settings;
        settings.goal = EncodingGoal::constantQuality;
        settings.useHardware = false;
        settings.quality = 31.5;
        settings.overwrite = true;
        settings.chooseCodec(OutputCodec::proRes422);
        settings.chooseCodec(OutputCodec::hevc);
        QCOMPARE(settings.goal, EncodingGoal::constantQuality);
        QCOMPARE(settings.useHardware, false);
        QCOMPARE(settings.quality, 31.5);
        QCOMPARE(settings.overwrite, true);
    }

    void acceptsTheLessUsualAudioByHand()
    {
        ConversionSettings settings;
        settings.chooseCodec(OutputCodec::proRes422);
        settings.audio = AudioMode::aac;
        QCOMPARE(settings.codec, OutputCodec::proRes422);
        QCOMPARE(settings.audio, AudioMode::aac);
    }
};

QUORVALE_TEST(ConversionSettingsTest)
#include "conversionsettings_test.moc"
