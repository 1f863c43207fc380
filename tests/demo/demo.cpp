// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "displayview.h"
#include "support/patience.h"
#include "support/programbench.h"

#include <QFile>
#include <QGuiApplication>
#include <QRegularExpression>
#include <QSet>
#include <QTest>

#include <cmath>
#include <cstdio>
#include <stdexcept>

using namespace quorvale::test;
using namespace Qt::StringLiterals;

namespace {

void require(bool isSo, const QString &otherwise)
{
    if (!isSo)
        throw std::runtime_error(otherwise.toStdString());
}

void print(const QString &line)
{
    std::puts(qPrintable(line));
    std::fflush(stdout); // each as soon as it is so
}

struct Media
{
    QString picture; // codec
    QString size;
    QString sound; // codec
    double seconds;

    QString text() const
    {
        return u"%1 %2, %3, %4 s"_s.arg(picture, size, sound).arg(seconds, 0, 'f', 1);
    }
};

struct Clip
{
    QString name;
    Media media;
    QString encoders; // in ffmpeg's words
};

// By their names, as the queue sorts what is dropped.
const Clip concert{u"concert.mkv"_s,
                   {u"av1"_s, u"1280x720"_s, u"opus"_s, 6},
                   u"-c:v libsvtav1 -preset 12 -c:a libopus"_s};
const Clip holiday{u"holiday.webm"_s,
                   {u"vp9"_s, u"640x360"_s, u"vorbis"_s, 4},
                   u"-c:v libvpx-vp9 -deadline realtime -c:a libvorbis"_s};
const Clip torn{u"torn.mp4"_s,
                {u"h264"_s, u"640x360"_s, u"aac"_s, 3},
                u"-c:v libx264 -pix_fmt yuv420p -c:a aac"_s};

// What ffprobe says of the file, which is to be what is expected. The length may differ a little,
// as sound comes in pieces of its own.
QString inspect(const QString &path, const Media &expected)
{
    const auto said = ChildOfTheTest().run(
        u"ffprobe"_s, {u"-v"_s, u"error"_s, u"-of"_s, u"csv=p=0"_s, u"-show_entries"_s,
                       u"stream=codec_name,width,height:format=duration"_s, path});
    static const QRegularExpression form(u"^(\\w+),(\\d+),(\\d+)\n(\\w+)\n([\\d.]+)\n$"_s);
    const auto match = form.match(QString::fromUtf8(said.value_or(QByteArray())));
    require(match.hasMatch(), path + u" is no video with sound."_s);
    const Media media{match.captured(1), match.captured(2) + u'x' + match.captured(3),
                      match.captured(4), match.captured(5).toDouble()};
    require(media.picture == expected.picture && media.size == expected.size
                && media.sound == expected.sound
                && std::abs(media.seconds - expected.seconds) <= 0.2,
            u"%1 is %2 rather than %3."_s.arg(path, media.text(), expected.text()));
    return media.text();
}

QString make(const Clip &clip, const QDir &folder)
{
    QString path = folder.filePath(clip.name);
    const QString input =
        u"-v error -f lavfi -i testsrc2=rate=30:duration=%1:size=%2 "
        "-f lavfi -i sine=sample_rate=48000:duration=%1 "_s.arg(clip.media.seconds)
            .arg(clip.media.size);
    const auto run = ChildOfTheTest().run(u"ffmpeg"_s, (input + clip.encoders).split(u' ') << path);
    require(run.has_value(), u"ffmpeg does not make %1."_s.arg(path));
    print(u"  %1 %2"_s.arg(clip.name, -13).arg(inspect(path, clip.media)));
    return path;
}

// What the window says beside the state that the clip is to end in; waits for its end.
QString message(const WindowDriver &window, const Clip &clip, const QString &state)
{
    static const QRegularExpression end(u"^.*?, (Complete|Failed|Cancelled)(?:, (.+))?$"_s,
                                        QRegularExpression::DotMatchesEverythingOption);
    QString said;
    const auto hasEnded = [&] {
        said = window.description(clip.name);
        return end.match(said).hasMatch();
    };
    const bool isInTime = QTest::qWaitFor(hasEnded, patience);
    const auto match = end.match(said);
    require(isInTime && match.captured(1) == state,
            u"%1 is not %2 in the window, which says: %3"_s.arg(clip.name, state, said));
    return match.captured(2);
}

void savePicture(const VirtualDisplay &display, const QString &window, const QString &path)
{
    const QRect area = display.areaOf(window);
    require(!display.restingPicture(area).isEmpty() && imageOf(display, area).save(path),
            u"The picture cannot be saved as %1."_s.arg(path));
    const QImage saved(path);
    QSet<QRgb> colours;
    for (int y = 0; y < saved.height(); ++y) {
        for (int x = 0; x < saved.width(); ++x)
            colours << saved.pixel(x, y);
    }
    constexpr qsizetype coloursOfText = 100; // with its smooth edges
    require(saved.size() == area.size() && colours.size() > coloursOfText,
            u"There is nothing to be seen in %1."_s.arg(path));
}

// Works the window as a person does, and says what becomes of what is in it.
void show(const QDir &folder)
{
    const QDir clips(folder.filePath(u"clips"_s));
    const QDir outputs(folder.filePath(u"converted"_s));
    require(clips.mkpath(u"."_s) && outputs.mkpath(u"."_s),
            u"No folders can be made in %1."_s.arg(folder.path()));
    print(u"Clips in %1:"_s.arg(clips.path()));
    const QStringList paths{make(concert, clips), make(holiday, clips), make(torn, clips)};
    require(QFile::resize(paths.last(), QFileInfo(paths.last()).size() / 2),
            u"%1 cannot be cut."_s.arg(paths.last()));
    print(u"  %1 is cut in half now.\n"_s.arg(torn.name));

    const VirtualDesktop desktop;
    DisplayView view(desktop.display());
    const bool isWatched = QGuiApplication::platformName() != u"offscreen"_s;
    view.setVisible(isWatched);
    print(isWatched ? u"Quorvale opens on a virtual display, which you see in a window; your mouse "
                      "and keyboard stay yours."_s
                    : u"Quorvale opens on a virtual display, as there is no other."_s);
    ProgramBench bench(desktop);
    const WindowDriver &window = bench.window();
    require(bench.start(), u"Its window does not open."_s);
    require(bench.drop(paths) && window.waitForRows({concert.name, holiday.name, torn.name}),
            u"Its window does not take what is dropped."_s);
    require(window.chooseOutputFolder(outputs.path()), u"No folder can be chosen."_s);
    require(window.convert(3), u"No conversion can be begun."_s);
    print(u"The clips are dropped on it, a folder is chosen, \"Convert 3 Videos\" is clicked.\n"_s);

    print(u"What becomes of them in %1:"_s.arg(outputs.path()));
    QStringList names;
    for (const Clip &clip : {concert, holiday}) {
        message(window, clip, u"Complete"_s);
        names << QFileInfo(clip.name).baseName() + u"_converted.mp4"_s;
        const Media expected{u"h264"_s, clip.media.size, u"aac"_s, clip.media.seconds};
        print(u"  %1 Complete  %2  %3"_s.arg(clip.name, -13)
                  .arg(names.last(), inspect(outputs.filePath(names.last()), expected)));
    }
    QString reason = message(window, torn, u"Failed"_s);
    require(!reason.isEmpty(), u"The window does not say why %1 failed."_s.arg(torn.name));
    reason.replace(u'\n', u'\n' + QString(26, u' '));
    print(u"  %1 Failed    %2\n"_s.arg(torn.name, -13).arg(reason));
    require(outputs.entryList(QDir::Files) == names,
            u"Something else is in %1."_s.arg(outputs.path()));

    const QString picture = folder.filePath(u"window.png"_s);
    savePicture(desktop.display(), window.window(), picture);
    print(u"The window at the end: %1"_s.arg(picture));
    if (isWatched)
        QTest::qWait(3000); // to be looked at
    require(window.close() && bench.run().waitForEnd() == 0, u"Quorvale does not end well."_s);
}

} // namespace

int main(int argc, char *argv[])
{
    const QGuiApplication application(argc, argv);
    if (argc != 2) {
        qWarning("usage: demo FOLDER");
        return EXIT_FAILURE;
    }
    try {
        show(QDir(QString::fromLocal8Bit(argv[1])));
    } catch (const std::runtime_error &failure) {
        qWarning("The demo fails. %s", failure.what());
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
