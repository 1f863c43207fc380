// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "support/clips.h"
#include "support/conversion.h"
#include "support/filesizelimit.h"
#include "support/mediafacts.h"
#include "support/patience.h"
#include "support/testclass.h"
#include "support/toolrun.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace quorvale;
using namespace quorvale::test;
using namespace Qt::StringLiterals;

// That a conversion by the machine's own ffmpeg succeeds when its output is whole, and only then.
class WholeOutputTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        useMachineTools();
        m_clip = makeClip(u"h264.mp4"_s, QDir(m_folder.path()));
    }

    void init()
    {
        useMachineTools();
        QVERIFY(QDir(folder(u"out"_s)).removeRecursively());
        QVERIFY(QDir().mkpath(folder(u"out"_s)));
    }

    void aDiskOfAnySizeIsJudgedRight_data()
    {
        QTest::addColumn<OutputCodec>("codec");
        QTest::addColumn<AudioMode>("audio");
        for (const OutputCodec codec :
             {OutputCodec::h264, OutputCodec::hevc, OutputCodec::proRes422}) {
            for (const AudioMode audio : allCases<AudioMode>()) {
                // Not every version writes PCM into mp4.
                if (isProRes(codec) || audio != AudioMode::pcm)
                    QTest::addRow("%s, %s", qPrintable(rawValue(codec)),
                                  qPrintable(rawValue(audio)))
                        << codec << audio;
            }
        }
    }
    void aDiskOfAnySizeIsJudgedRight()
    {
        QFETCH(const OutputCodec, codec);
        QFETCH(const AudioMode, audio);
        // Coloured messages are judged like any other.
        qputenv("AV_LOG_FORCE_COLOR", "1");
        const auto plain = qScopeGuard([] { qunsetenv("AV_LOG_FORCE_COLOR"); });
        ConversionSettings settings = quick;
        settings.codec = codec;
        settings.audio = audio;
        const QString output = folder(isProRes(codec) ? u"out/a.mov"_s : u"out/a.mp4"_s);
        FileSizeLimit limit;
        QCOMPARE(convert(m_clip, output, settings).message, QString());
        const QList<int> whole = packetCounts(output);
        QCOMPARE(whole.size(), 2);
        const qint64 size = QFileInfo(output).size();

        constexpr int steps = 4;
        QList<qint64> limits{size - 1};
        for (int step = 0; step <= steps; ++step)
            limits << size * step / steps;
        for (const qint64 bytes : limits) {
            limit.set(bytes);
            const ConversionEnd end = convert(m_clip, output, settings);
            const bool isWhole = packetCounts(output) == whole;
            QVERIFY2(end.isSuccess() == isWhole,
                     qPrintable(u"%1 of %2 bytes: %3"_s.arg(bytes).arg(size).arg(end.message)));
            QCOMPARE(isWhole, bytes == size);
        }
    }

    void aPathOfSeveralLinesIsJudged()
    {
        const QString output = folder(u"out/two\n\nlines\x01.mp4"_s);
        FileSizeLimit limit;
        QCOMPARE(convert(m_clip, output).message, QString());
        limit.set(QFileInfo(output).size() - 1);
        QVERIFY(convert(m_clip, output).ffmpegError == FFmpegError::Case::processFailed);
    }

    void anOutputFolderThatGoesMeanwhileFailsTheConversion()
    {
        const QString longClip = folder(u"long.mp4"_s);
        repeatClip(m_clip, 20, longClip);
        const QString output = folder(u"out/a.mp4"_s);
        // As soon as there is an output, and long before it is done.
        const auto conversion = start(longClip, output, quick);
        QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(output), patience);
        QVERIFY(QDir(folder(u"out"_s)).removeRecursively());
        QVERIFY(endOf(conversion).ffmpegError == FFmpegError::Case::processFailed);
        QVERIFY(!QFile::exists(output));
    }

    // Whatever a source says, and wherever ffmpeg repeats it.
    void nothingInASourceMakesItFail_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QStringList>("metadata");
        const QString output = folder(u"out/a.mp4"_s);
        const QString error = u"Error writing trailer of %1: no"_s.arg(output);
        const QString muxerError = u"[out#0/mp4 @ 0x55d0] Error closing file: no"_s;
        const QString refusal = u"File '%1' already exists. Exiting."_s.arg(output);
        const QStringList none{u"-c"_s, u"copy"_s};
        QTest::newRow("a name") << u"Error writing trailer of a.mp4: no.mp4"_s << none;
        QTest::newRow("a muxer's error for a name") << muxerError + u".mp4"_s << none;
        QTest::newRow("a line of a name") << u"a\n"_s + muxerError + u".mp4"_s << none;
        QTest::newRow("a line of a path") << u"a\n"_s + error + u"/a.mp4"_s << none;
        for (const QString &line : {error, muxerError, refusal}) {
            QTest::addRow("a title: %s", qPrintable(line.left(12)))
                << u"a.mp4"_s << (none + QStringList{u"-metadata"_s, u"title="_s + line});
            QTest::addRow("lines of a title: %s", qPrintable(line.left(12)))
                << u"a.mp4"_s
                << (none
                    + QStringList{u"-metadata"_s,
                                  u"title=a\n"_s + line + u"\r"_s + line + u"\n"_s + line});
            QTest::addRow("a line of a key: %s", qPrintable(line.left(12)))
                << u"a.mp4"_s
                << (none
                    + QStringList{u"-movflags"_s, u"use_metadata_tags"_s, u"-metadata"_s,
                                  u"a\n"_s + line + u"\nb=c"_s});
            QTest::addRow("a line of a language: %s", qPrintable(line.left(12)))
                << u"a.mkv"_s
                << (none
                    + QStringList{u"-metadata:s:a:0"_s, u"language=eng\n"_s + line + u"\nx"_s});
        }
    }
    void nothingInASourceMakesItFail()
    {
        QFETCH(const QString, name);
        QFETCH(const QStringList, metadata);
        const QString source = folder(u"in/"_s + name);
        QVERIFY(QDir().mkpath(QFileInfo(source).path()));
        const ToolRun made =
            runFFmpeg(QStringList{u"-i"_s, u"file:"_s + m_clip} + metadata + QStringList{source});
        QVERIFY2(made.succeeded, made.errors.constData());
        const QString output = folder(u"out/a.mp4"_s);
        QCOMPARE(convert(source, output).message, QString());
        QCOMPARE(packetCounts(output).size(), 2);
        // Matroska's coarser times can make a frame more of it.
        QVERIFY(packetCounts(output).first() >= packetCounts(m_clip).first());
    }

private:
    QString folder(const QString &name) const { return m_folder.filePath(name); }

    QFuture<ConvertedFile> start(const QString &source, const QString &output,
                                 const ConversionSettings &settings)
    {
        return m_service.convert(QUrl::fromLocalFile(source), QUrl::fromLocalFile(output), settings,
                                 [](double) {});
    }

    ConversionEnd convert(const QString &source, const QString &output,
                          const ConversionSettings &settings = quick)
    {
        return endOf(start(source, output, settings));
    }

    // By quality, because a bitrate does not make the same output every time.
    static constexpr ConversionSettings quick{.audio = AudioMode::copy,
                                              .goal = EncodingGoal::constantQuality,
                                              .useHardware = false,
                                              .overwrite = true};
    QTemporaryDir m_folder;
    QString m_clip;
    FFmpegService m_service;
};

QUORVALE_TEST(WholeOutputTest)
#include "wholeoutput_test.moc"
