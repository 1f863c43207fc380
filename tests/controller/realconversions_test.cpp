// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "controller/converterviewmodel.h"
#include "model/filename.h"
#include "support/clips.h"
#include "support/mediafacts.h"
#include "support/queue.h"
#include "support/testclass.h"
#include "support/toolrun.h"

#include <QMap>
#include <QSet>
#include <QTest>
#include <QtEndian>

#include <cmath>

using namespace quorvale;
using namespace quorvale::test;
using namespace Qt::StringLiterals;

namespace {

// The types of the top-level atoms of an MP4 or QuickTime file, in their order (the boxes of
// ISO/IEC 14496-12). Empty unless they fill the file exactly.
QList<QByteArray> topLevelAtoms(const QString &path)
{
    const QByteArray file = contentsOf(path);
    QList<QByteArray> types;
    qint64 start = 0;
    while (start + 8 <= file.size()) {
        types << file.sliced(start + 4, 4);
        qint64 size = qFromBigEndian<quint32>(file.constData() + start);
        if (size == 1 && start + 16 <= file.size())
            size = qFromBigEndian<qint64>(file.constData() + start + 8);
        if (size < 8 || size > file.size() - start)
            return {};
        start += size;
    }
    return start == file.size() ? types : QList<QByteArray>();
}

} // namespace

class RealConversionsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        useMachineTools();
        for (const QString &name : clipNames())
            m_clips[name] = mediaFacts(makeClip(name, QDir(m_folder.path())));
    }

    void theClipsCoverEveryAcceptedExtension()
    {
        QSet<QString> extensions;
        for (const QString &name : m_clips.keys())
            extensions << QString::fromUtf8(pathExtension(name.toUtf8()));
        QCOMPARE(extensions, FFmpegService::supportedExtensions());
    }

    void theClipsAreWhatTheyAreMadeFor()
    {
        QCOMPARE(m_clips[u"av1.mkv"_s].videoCodec, u"av1"_s);
        QCOMPARE(m_clips[u"av1.mkv"_s].audioCodec, u"opus"_s);
        QCOMPARE(m_clips[u"hevc.mov"_s].videoTag, u"hvc1"_s);
        QCOMPARE(m_clips[u"fullcolour.mkv"_s].pixelFormat, u"yuv444p"_s);
        QCOMPARE(m_clips[u"camera.mts"_s].pixelFormat, u"yuv422p"_s);
        QStringList silent;
        QStringList undated;
        for (const auto &[name, facts] : m_clips.asKeyValueRange()) {
            QVERIFY2(!facts.videoCodec.isEmpty(), qPrintable(name));
            // An MPEG transport stream has no place for a title.
            QCOMPARE(facts.title, facts.format == u"mpegts" ? QString() : name);
            if (facts.audioCodec.isEmpty())
                silent << name;
            if (!facts.duration)
                undated << name;
        }
        QCOMPARE(silent, QStringList(u"silent.mp4"_s));
        QCOMPARE(undated, QStringList(u"undated.mkv"_s));
    }

    void everyClipConverts_data()
    {
        QTest::addColumn<OutputCodec>("codec");
        QTest::addColumn<bool>("hardware");
        // Both ways to the software encoders; service/softwareencoder tries every codec's.
        for (const OutputCodec codec : allCases<OutputCodec>()) {
            const bool hardware = codec != OutputCodec::hevc && codec != OutputCodec::proRes422HQ;
            QTest::addRow("%s, %s", qPrintable(rawValue(codec)),
                          hardware ? "media engine" : "software")
                << codec << hardware;
        }
    }
    void everyClipConverts()
    {
        QFETCH(const OutputCodec, codec);
        QFETCH(const bool, hardware);
        Queue queue(Tools::machine);
        ConversionSettings settings;
        settings.useHardware = hardware;
        queue.model().setSettings(settings);
        queue.model().chooseCodec(static_cast<int>(codec));
        QVERIFY(queue.drop(m_folder.path(), m_clips.size()));

        QVERIFY(queue.runBatch());

        for (const ConversionJob &job : queue.model().jobs())
            QVERIFY(isConverted(job));
        const QString extension = isProRes(codec) ? u".mov"_s : u".mp4"_s;
        QSet<QString> expectedNames;
        for (const auto &[name, source] : m_clips.asKeyValueRange()) {
            const QString output = name.first(name.indexOf(u'.')) + u"_converted"_s + extension;
            expectedNames << output;
            checkOutput(queue.outputs().filePath(output), source, codec);
            QVERIFY2(!QTest::currentTestFailed(), qPrintable(name));
        }
        QCOMPARE(queue.model().completedCount(), m_clips.size());
        QCOMPARE(queue.model().overallProgress(), 1.0);
        const QStringList names = queue.outputs().entryList(QDir::Files);
        QCOMPARE(QSet<QString>(names.begin(), names.end()), expectedNames);
    }

private:
    static void checkOutput(const QString &path, const MediaFacts &source, OutputCodec codec)
    {
        const MediaFacts facts = mediaFacts(path);
        checkVideo(facts, source, codec);

        const QString audioCodec = isProRes(codec) ? u"pcm_s24le"_s : u"aac"_s;
        QCOMPARE(facts.audioCodec, source.audioCodec.isEmpty() ? QString() : audioCodec);

        QVERIFY2(facts.format.split(u',').contains(u"mp4"_s), qPrintable(facts.format));
        QCOMPARE(facts.majorBrand, isProRes(codec) ? u"qt  "_s : u"isom"_s);
        QCOMPARE(facts.title, source.title);

        QVERIFY(facts.duration);
        const double difference = *facts.duration - source.duration.value_or(clipSeconds);
        QVERIFY2(std::abs(difference) <= 0.1, qPrintable(QString::number(difference)));

        const QList<QByteArray> atoms = topLevelAtoms(path);
        QCOMPARE(atoms.count("moov"), 1);
        QCOMPARE(atoms.count("mdat"), 1);
        QVERIFY(atoms.indexOf("moov") < atoms.indexOf("mdat"));
    }

    static void checkVideo(const MediaFacts &facts, const MediaFacts &source, OutputCodec codec)
    {
        switch (codec) {
        case OutputCodec::h264:
            QCOMPARE(facts.videoCodec, u"h264"_s);
            QCOMPARE(facts.videoTag, u"avc1"_s);
            QCOMPARE(facts.pixelFormat, u"yuv420p"_s);
            return;
        case OutputCodec::hevc:
            QCOMPARE(facts.videoCodec, u"hevc"_s);
            QCOMPARE(facts.videoTag, u"hvc1"_s);
            QCOMPARE(facts.pixelFormat, source.pixelFormat);
            return;
        case OutputCodec::proRes422:
            QCOMPARE(facts.videoTag, u"apcn"_s);
            QCOMPARE(facts.videoProfile, u"Standard"_s);
            break;
        case OutputCodec::proRes422HQ:
            QCOMPARE(facts.videoTag, u"apch"_s);
            QCOMPARE(facts.videoProfile, u"HQ"_s);
            break;
        case OutputCodec::proRes4444:
            QCOMPARE(facts.videoTag, u"ap4h"_s);
            QCOMPARE(facts.videoProfile, u"4444"_s);
            break;
        }
        QCOMPARE(facts.videoCodec, u"prores"_s);
        // ProRes has no 4:2:0: such sources become 4:2:2. ffmpeg decodes ProRes 4444 with 12 bits,
        // the others with 10.
        QCOMPARE(facts.pixelFormat,
                 u"yuv%1p%2le"_s.arg(source.pixelFormat == u"yuv444p" ? 444 : 422)
                     .arg(codec == OutputCodec::proRes4444 ? 12 : 10));
    }

    QTemporaryDir m_folder;
    QMap<QString, MediaFacts> m_clips; // by file name
};

QUORVALE_TEST(RealConversionsTest)
#include "realconversions_test.moc"
