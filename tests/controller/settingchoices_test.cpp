// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "controller/converterviewmodel.h"
#include "support/recordedfilemanager.h"
#include "support/recordedpanel.h"
#include "support/testclass.h"

#include <QSignalSpy>
#include <QTest>

#include <limits>

using namespace quorvale;
using namespace quorvale::test;
using namespace Qt::StringLiterals;

// The settings as the window's controls read and write them: by the names of the properties.
class SettingChoicesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_model = ConverterViewModel::create(std::make_unique<RecordedPanel>(),
                                             std::make_unique<RecordedFileManager>());
        m_changes =
            std::make_unique<QSignalSpy>(m_model.get(), &ConverterViewModel::settingsChanged);
    }

    void cleanup()
    {
        m_changes.reset();
        m_model.reset();
    }

    void offersEveryOptionInItsOrder()
    {
        QCOMPARE(get("codecLabels").toStringList(),
                 (QStringList{u"H.264"_s, u"H.265 (HEVC)"_s, u"ProRes 422"_s, u"ProRes 422 HQ"_s,
                              u"ProRes 4444"_s}));
        QCOMPARE(get("goalLabels").toStringList(),
                 (QStringList{u"Match source size"_s, u"Balanced"_s, u"Constant quality"_s}));
        QCOMPARE(get("audioLabels").toStringList(),
                 (QStringList{u"AAC (compatible)"_s, u"Copy source audio"_s,
                              u"PCM (ProRes workflow)"_s}));
    }

    void showsTheDefaults()
    {
        QCOMPARE(get("codecIndex"), 0);
        QCOMPARE(get("isProRes"), false);
        QCOMPARE(get("goalIndex"), 1);
        QCOMPARE(get("audioIndex"), 0);
        QCOMPARE(get("useHardware"), true);
        QCOMPARE(get("quality"), 76.0);
    }

    void aControlChangesItsSettingAlone_data()
    {
        QTest::addColumn<QByteArray>("property");
        QTest::addColumn<QVariant>("value");
        QTest::newRow("first goal") << "goalIndex"_ba << QVariant(0);
        QTest::newRow("last goal") << "goalIndex"_ba << QVariant(2);
        QTest::newRow("copied audio") << "audioIndex"_ba << QVariant(1);
        QTest::newRow("PCM with H.264") << "audioIndex"_ba << QVariant(2);
        QTest::newRow("no hardware") << "useHardware"_ba << QVariant(false);
        QTest::newRow("quality between steps") << "quality"_ba << QVariant(76.9);
    }
    void aControlChangesItsSettingAlone()
    {
        QFETCH(const QByteArray, property);
        QFETCH(const QVariant, value);
        QVariantMap expected = all();
        expected[QString::fromLatin1(property)] = value;
        QVERIFY(set(property.constData(), value));
        QCOMPARE(all(), expected);
        QCOMPARE(m_changes->size(), 1);
    }

    void writtenSettingsReachTheRecord()
    {
        set("goalIndex", 2);
        set("audioIndex", 1);
        set("useHardware", false);
        set("quality", 30.5);
        QCOMPARE(m_model->settings().goal, EncodingGoal::constantQuality);
        QCOMPARE(m_model->settings().audio, AudioMode::copy);
        QCOMPARE(m_model->settings().useHardware, false);
        QCOMPARE(m_model->settings().quality, 30.5);
    }

    void aValueThatIsStoredAlreadyIsNoChange()
    {
        const QVariantMap before = all();
        for (const char *property : {"goalIndex", "audioIndex", "useHardware", "quality"})
            QVERIFY(set(property, get(property)));
        QCOMPARE(all(), before);
        QCOMPARE(m_changes->size(), 0);
    }

    void anIndexWithoutALabelIsNoChange()
    {
        const QVariantMap before = all();
        for (const int index : {-1, 3, std::numeric_limits<int>::min()}) {
            set("goalIndex", index);
            set("audioIndex", index);
        }
        m_model->chooseCodec(-1);
        m_model->chooseCodec(5);
        QCOMPARE(all(), before);
        QCOMPARE(m_changes->size(), 0);
    }

    void choosingACodecAdaptsTheAudio()
    {
        m_model->chooseCodec(4);
        QCOMPARE(get("codecIndex"), 4);
        QCOMPARE(get("isProRes"), true);
        QCOMPARE(get("audioIndex"), 2);
        QCOMPARE(m_changes->size(), 1);
        m_model->chooseCodec(1);
        QCOMPARE(get("isProRes"), false);
        QCOMPARE(get("audioIndex"), 0);
    }

    void choosingTheSameCodecAgainAdaptsTheAudioToo()
    {
        set("audioIndex", 2);
        m_model->chooseCodec(0);
        QCOMPARE(get("audioIndex"), 0);
    }

    void everySettingTellsOfItsChanges()
    {
        for (const char *property :
             {"codecIndex", "isProRes", "goalIndex", "audioIndex", "useHardware", "quality"}) {
            const int index = m_model->metaObject()->indexOfProperty(property);
            QCOMPARE(m_model->metaObject()->property(index).notifySignal().name(),
                     "settingsChanged"_ba);
        }
    }

private:
    QVariant get(const char *property) const { return m_model->property(property); }
    bool set(const char *property, const QVariant &value)
    {
        return m_model->setProperty(property, value);
    }

    QVariantMap all() const
    {
        QVariantMap values;
        for (const char *property :
             {"codecIndex", "goalIndex", "audioIndex", "useHardware", "quality"})
            values[QString::fromLatin1(property)] = get(property);
        return values;
    }

    std::shared_ptr<ConverterViewModel> m_model;
    std::unique_ptr<QSignalSpy> m_changes;
};

QUORVALE_TEST(SettingChoicesTest)
#include "settingchoices_test.moc"
