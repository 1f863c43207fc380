// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "model/failurereason.h"
#include "support/testclass.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QMap>
#include <QTest>

using namespace quorvale;
using namespace Qt::StringLiterals;

class FailureReasonTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void beginsWhereFFmpegSaysWhy_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("words");
        for (const auto &[name, words] : m_reasons.asKeyValueRange())
            QTest::newRow(qPrintable(name)) << name << words;
    }
    void beginsWhereFFmpegSaysWhy()
    {
        QFETCH(const QString, name);
        QFETCH(const QString, words);
        QFile file(m_failures.filePath(name + ".txt"_L1));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QString message = QString::fromUtf8(file.readAll()).chopped(1);
        const QString reason = failureReason(message);
        QVERIFY2(reason.section(u'\n', 0, 0).contains(words), qPrintable(reason));
        QVERIFY((u'\n' + message).endsWith(u'\n' + reason));
    }

    void everythingThatFFmpegSaidIsTested()
    {
        QStringList found;
        QDirIterator files(m_failures.path(), QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext())
            found << m_failures.relativeFilePath(files.next()).chopped(4);
        found.sort();
        QCOMPARE(found, m_reasons.keys());
    }

    void aMessageWithoutAReasonIsShownAsItStands_data()
    {
        QTest::addColumn<QString>("message");
        QTest::newRow("nothing") << u""_s;
        QTest::newRow("line feeds") << u"\n\n"_s;
        QTest::newRow("indented") << u"    vendor_id       : [0][0][0][0]"_s;
        QTest::newRow("descriptions") << u"Stream mapping:\n  Stream #0:0 -> #0:0 (copy)\n"
                                         u"Press [q] to stop, [?] for help"_s;
    }
    void aMessageWithoutAReasonIsShownAsItStands()
    {
        QFETCH(const QString, message);
        QCOMPARE(failureReason(message), message);
    }

    void otherMessagesAreReasons_data()
    {
        QTest::addColumn<QString>("message");
        QTest::newRow("of the program") << u"FFmpeg could not convert this file."_s;
        QTest::newRow("with an odd name")
            << u"The folder “/a\n  b” could not be created: Permission denied"_s;
        QTest::newRow("of an encoder")
            << u"[libx264 @ 0x55d0] width not divisible by 2 (161x121)\n[libx264 @ 0x55d0] kb/s:1"_s;
        QTest::newRow("that begins like a description")
            << u"[libx264 @ 0x55d0] frame MB size (512x512) > level limit (8192)"_s;
        QTest::newRow("with an open bracket") << u"[frame=1"_s;
        QTest::newRow("in words not known here") << u"[mp5 @ 0x55d0] Out of tape"_s;
    }
    void otherMessagesAreReasons()
    {
        QFETCH(const QString, message);
        QCOMPARE(failureReason(message), message);
    }

    void theReasonGoesOnToTheEnd()
    {
        QCOMPARE(failureReason(u"Press [q] to stop\n/a\n  b.mp4: Is a directory\nframe=    0\n"),
                 u"/a\n  b.mp4: Is a directory\nframe=    0\n"_s);
    }

private:
    const QDir m_failures{QStringLiteral(FAILURES)};

    // What ffmpeg said last, in the folder of its version, and the words in the line that says why.
    const QMap<QString, QString> m_reasons{
        {u"4.3/pcm-in-mp4"_s, u"Could not find tag for codec pcm_s24le in stream #1"_s},
        {u"4.3/opus-in-mov"_s, u"opus only supported in MP4."_s},
        {u"4.3/read-only-folder"_s, u"/converted/clip_converted.mp4: Permission denied"_s},
        {u"4.3/cut-mp4"_s, u"moov atom not found"_s},
        {u"4.3/full-prores"_s, u"av_interleaved_write_frame(): File too large"_s},
        {u"4.3/cancelled-h264"_s, u"Exiting normally, received signal 2."_s},
        {u"4.3/cancelled-hevc"_s, u"Exiting normally, received signal 2."_s},
        {u"5.1/pcm-in-mp4"_s, u"Could not find tag for codec pcm_s24le in stream #1"_s},
        {u"5.1/pcm-in-mp4-hevc"_s, u"Could not find tag for codec pcm_s24le in stream #1"_s},
        {u"5.1/pcm-in-mp4-audio-only"_s, u"Could not find tag for codec pcm_s24le in stream #0"_s},
        {u"5.1/opus-in-mov"_s, u"opus only supported in MP4."_s},
        {u"5.1/flac-in-mp4"_s, u"flac in MP4 support is experimental"_s},
        {u"5.1/wma-in-mp4"_s, u"Could not find tag for codec wmav2 in stream #1"_s},
        {u"5.1/truehd-in-mov"_s, u"truehd only supported in MP4."_s},
        {u"5.1/no-media-engine"_s, u"Unknown encoder 'h264_videotoolbox'"_s},
        {u"5.1/bitrate-out-of-range"_s,
         u"Value 4500000000.000000 for parameter 'maxrate' out of range"_s},
        {u"5.1/empty-mp4"_s, u"moov atom not found"_s},
        {u"5.1/empty-mkv"_s, u"EBML header parsing failed"_s},
        {u"5.1/noise"_s, u"moov atom not found"_s},
        {u"5.1/unlocked-memory"_s, u"moov atom not found"_s},
        {u"5.1/text-mkv"_s, u"EBML header parsing failed"_s},
        {u"5.1/cut-mp4"_s, u"moov atom not found"_s},
        {u"5.1/cut-behind-moov"_s, u"stream 0, offset 0x907: partial file"_s},
        {u"5.1/cut-mkv"_s, u"File ended prematurely at pos. 300"_s},
        {u"5.1/cut-ts"_s, u"Could not detect TS packet size"_s},
        {u"5.1/undecodable"_s, u"Conversion failed!"_s},
        {u"5.1/folder"_s, u"Is a directory"_s},
        {u"5.1/vanished"_s, u"No such file or directory"_s},
        {u"5.1/unreadable"_s, u"Permission denied"_s},
        {u"5.1/read-only-folder"_s, u"/converted/clip_converted.mp4: Permission denied"_s},
        {u"5.1/no-folder"_s, u"/converted/clip_converted.mp4: No such file or directory"_s},
        {u"5.1/long-name"_s, u"File name too long"_s},
        {u"5.1/existing-output"_s,
         u"File '/converted/clip_converted.mp4' already exists. Exiting."_s},
        {u"5.1/full-at-once"_s, u"Could not write header for output file #0"_s},
        {u"5.1/full-h264"_s, u"Conversion failed!"_s},
        {u"5.1/full-hevc"_s, u"Conversion failed!"_s},
        {u"5.1/full-prores"_s,
         u"Error writing trailer of /converted/clip_converted.mov: File too large"_s},
        {u"5.1/cancelled-h264"_s, u"Exiting normally, received signal 2."_s},
        {u"5.1/cancelled-hevc"_s, u"Exiting normally, received signal 2."_s},
        {u"5.1/cancelled-prores"_s, u"Exiting normally, received signal 2."_s},
        {u"5.1/cancelled-twice"_s, u"Exiting normally, received signal 2."_s},
        {u"5.1/cancelled-often"_s, u"Received > 3 system signals, hard exiting"_s},
        {u"6.1/opus-in-mov"_s, u"opus only supported in MP4."_s},
        {u"6.1/read-only-folder"_s,
         u"Error opening output /converted/clip_converted.mp4: Permission denied"_s},
        {u"6.1/full-prores"_s, u"Error muxing a packet"_s},
        {u"6.1/cancelled-h264"_s, u"Exiting normally, received signal 2."_s},
        {u"6.1/cancelled-prores"_s, u"Exiting normally, received signal 2."_s},
        {u"7.1/opus-in-mov"_s, u"opus only supported in MP4."_s},
        {u"7.1/no-media-engine"_s, u"Unknown encoder 'h264_videotoolbox'"_s},
        {u"7.1/cut-mp4"_s, u"moov atom not found"_s},
        {u"7.1/vanished"_s, u"Error opening input: No such file or directory"_s},
        {u"7.1/full-hevc"_s, u"Conversion failed!"_s},
        {u"7.1/cancelled-hevc"_s, u"Exiting normally, received signal 2."_s},
        {u"9.0/opus-in-mov"_s, u"opus only supported in MP4."_s},
        {u"9.0/wma-in-mp4"_s, u"Could not find tag for codec wmav2 in stream #1"_s},
        {u"9.0/alpha-in-hevc"_s, u"Task finished with error code: -95 (Operation not supported)"_s},
        {u"9.0/bitrate-out-of-range"_s,
         u"Value 4500000000.000000 for parameter 'maxrate' out of range"_s},
        {u"9.0/empty-mp4"_s, u"moov atom not found"_s},
        {u"9.0/read-only-folder"_s,
         u"Error opening output /converted/clip_converted.mp4: Permission denied"_s},
        {u"9.0/full-h264"_s, u"Conversion failed!"_s},
        {u"9.0/full-prores"_s, u"Terminating thread with return code -27 (File too large)"_s},
        {u"9.0/cancelled-h264"_s, u"Exiting normally, received signal 2."_s},
        {u"9.0/cancelled-hevc"_s, u"Exiting normally, received signal 2."_s},
        {u"9.0/cancelled-prores"_s, u"Exiting normally, received signal 2."_s},
    };
};

QUORVALE_TEST(FailureReasonTest)
#include "failurereason_test.moc"
