// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "model/encoderarguments.h"
#include "model/filepath.h"
#include "service/conversionarguments.h"
#include "support/testclass.h"

#include <QTest>

using namespace quorvale;
using namespace Qt::StringLiterals;

namespace {

const QUrl source = QUrl::fromLocalFile(u"/in/my clip.mkv"_s);
const QUrl destination = QUrl::fromLocalFile(u"/out/my clip_converted.mp4"_s);

QByteArrayList words(const QByteArray &line)
{
    return line.simplified().split(' ');
}

QByteArrayList audioWords(AudioMode audio)
{
    if (audio == AudioMode::copy)
        return words("-c:a copy");
    return words(audio == AudioMode::aac ? "-c:a aac -b:a 192k" : "-c:a pcm_s24le");
}

} // namespace

class ConversionArgumentsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void defaultSettings()
    {
        QCOMPARE(conversionArguments(source, destination, {}, 4000000),
                 words("-n -hide_banner -i") + QByteArrayList{"/in/my clip.mkv"}
                     + words("-c:v h264_videotoolbox -tag:v avc1 -b:v 4000000 -maxrate 6000000 "
                             "-bufsize 8000000 -pix_fmt yuv420p "
                             "-c:a aac -b:a 192k -map_metadata 0 -movflags +faststart -progress "
                             "pipe:1 -nostats")
                     + QByteArrayList{"/out/my clip_converted.mp4"});
    }

    void everySetting_data()
    {
        QTest::addColumn<ConversionSettings>("settings");
        for (const OutputCodec codec : allCases<OutputCodec>()) {
            for (const AudioMode audio : allCases<AudioMode>()) {
                for (const bool hardware : {false, true}) {
                    for (const bool overwrite : {false, true}) {
                        ConversionSettings settings;
                        settings.codec = codec;
                        settings.audio = audio;
                        settings.useHardware = hardware;
                        settings.overwrite = overwrite;
                        settings.quality = 64.5;
                        QTest::addRow("%s, %s, hardware %d, overwrite %d",
                                      qPrintable(rawValue(codec)), qPrintable(rawValue(audio)),
                                      hardware, overwrite)
                            << settings;
                    }
                }
            }
        }
    }
    void everySetting()
    {
        QFETCH(const ConversionSettings, settings);
        for (const std::optional<qint64> target :
             {std::optional<qint64>(), std::optional<qint64>(777777)}) {
            const QString video =
                videoArguments(settings.codec, settings.useHardware, settings.quality, target)
                    .join(u' ');
            const QByteArrayList expected =
                QByteArrayList{settings.overwrite ? "-y" : "-n", "-hide_banner", "-i",
                               "/in/my clip.mkv"}
                + words(video.toLatin1()) + audioWords(settings.audio)
                + words("-map_metadata 0 -movflags +faststart -progress pipe:1 -nostats")
                + QByteArrayList{"/out/my clip_converted.mp4"};
            QCOMPARE(conversionArguments(source, destination, settings, target), expected);
        }
    }

    void pathsArePlainNotPercentEncoded()
    {
        const QByteArray odd = "/in/50% #1? \xd7\x90"
                               "e\xcc\x81\n'\"\xff.mkv"; // partly no text
        const QByteArrayList arguments = conversionArguments(fileUrl(odd), fileUrl(odd), {}, {});
        QCOMPARE(arguments[3], odd);
        QCOMPARE(arguments.last(), odd);
    }
};

QUORVALE_TEST(ConversionArgumentsTest)
#include "conversionarguments_test.moc"
