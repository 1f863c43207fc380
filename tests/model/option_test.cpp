// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "model/audiomode.h"
#include "model/encodinggoal.h"
#include "model/outputcodec.h"
#include "support/testclass.h"

#include <QSet>
#include <QTest>

using namespace quorvale;
using namespace Qt::StringLiterals;

class OptionTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void codecsHaveTheirLabelsInOrder()
    {
        QCOMPARE(labels<OutputCodec>(), (QStringList{u"H.264"_s, u"H.265 (HEVC)"_s, u"ProRes 422"_s,
                                                     u"ProRes 422 HQ"_s, u"ProRes 4444"_s}));
    }

    void goalsHaveTheirLabelsInOrder()
    {
        QCOMPARE(labels<EncodingGoal>(),
                 (QStringList{u"Match source size"_s, u"Balanced"_s, u"Constant quality"_s}));
    }

    void audioModesHaveTheirLabelsInOrder()
    {
        QCOMPARE(labels<AudioMode>(), (QStringList{u"AAC (compatible)"_s, u"Copy source audio"_s,
                                                   u"PCM (ProRes workflow)"_s}));
    }

    void everyCaseComesBackFromItsLabel()
    {
        for (const OutputCodec codec : allCases<OutputCodec>())
            QVERIFY(fromRawValue<OutputCodec>(rawValue(codec)) == codec);
        for (const EncodingGoal goal : allCases<EncodingGoal>())
            QVERIFY(fromRawValue<EncodingGoal>(rawValue(goal)) == goal);
        for (const AudioMode audio : allCases<AudioMode>())
            QVERIFY(fromRawValue<AudioMode>(rawValue(audio)) == audio);
    }

    void anythingButAWholeLabelIsNoCodec_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("case name") << u"h264"_s;
        QTest::newRow("shortened label") << u"H.265"_s;
        QTest::newRow("lower case") << u"prores 422 hq"_s;
        QTest::newRow("empty") << QString();
        QTest::newRow("leading space") << u" H.264"_s;
        QTest::newRow("trailing space") << u"H.264 "_s;
        QTest::newRow("longer") << u"ProRes 4444 XQ"_s;
    }
    void anythingButAWholeLabelIsNoCodec()
    {
        QFETCH(const QString, text);
        QVERIFY(!fromRawValue<OutputCodec>(text));
    }

    void aLabelThatBeginsLikeAnotherIsNotTakenForIt()
    {
        QVERIFY(fromRawValue<OutputCodec>(u"ProRes 422 HQ") == OutputCodec::proRes422HQ);
        QVERIFY(fromRawValue<OutputCodec>(u"ProRes 422") == OutputCodec::proRes422);
    }

    void aGoalsLabelIsCaseSensitive()
    {
        QVERIFY(fromRawValue<EncodingGoal>(u"Match source size") == EncodingGoal::sameSize);
        QVERIFY(!fromRawValue<EncodingGoal>(u"match source size"));
    }

    void identityIsTheLabel()
    {
        QSet<QString> ids;
        for (const OutputCodec codec : allCases<OutputCodec>()) {
            QCOMPARE(id(codec), rawValue(codec));
            ids << id(codec);
        }
        QCOMPARE(ids.size(), 5);
    }

    void onlyTheProResCodecsAreProRes()
    {
        QVERIFY(!isProRes(OutputCodec::h264));
        QVERIFY(!isProRes(OutputCodec::hevc));
        QVERIFY(isProRes(OutputCodec::proRes422));
        QVERIFY(isProRes(OutputCodec::proRes422HQ));
        QVERIFY(isProRes(OutputCodec::proRes4444));
    }

private:
    template <typename Option>
    static QStringList labels()
    {
        QStringList labels;
        for (const Option option : allCases<Option>())
            labels << rawValue(option);
        return labels;
    }
};

QUORVALE_TEST(OptionTest)
#include "option_test.moc"
