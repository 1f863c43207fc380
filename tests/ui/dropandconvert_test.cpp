// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "support/mousedrag.h"
#include "support/programrun.h"
#include "support/videofile.h"
#include "support/virtualdisplay.h"
#include "support/windowdriver.h"

#include <QDir>
#include <QTest>

#include <cmath>

using namespace quorvale;
using namespace quorvale::test;
using namespace Qt::StringLiterals;

// Converts real clips with the program as a user does, by mouse and keyboard.
class DropAndConvertTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(m_display.start());
        QVERIFY(QDir(m_folder.path()).mkdir(u"clips"_s));
        const QStringList av1{u"-c:v"_s, u"libsvtav1"_s, u"-preset"_s,
                              u"10"_s,   u"-c:a"_s,      u"libopus"_s};
        const QStringList vp9{u"-c:v"_s,      u"libvpx-vp9"_s, u"-deadline"_s, u"realtime"_s,
                              u"-cpu-used"_s, u"8"_s,          u"-c:a"_s,      u"libopus"_s};
        const QStringList h264{u"-c:v"_s, u"libx264"_s, u"-c:a"_s, u"aac"_s};
        QVERIFY(makeVideo(clip(u"av1.mkv"_s), av1, 1.0));
        QVERIFY(makeVideo(clip(u"vp9.webm"_s), vp9, 1.4));
        QVERIFY(makeVideo(clip(u"h264.mp4"_s), h264, 1.8));
        QVERIFY(makeVideo(clip(oddName), h264, 2.2));
    }

    void init()
    {
        m_run = std::make_unique<ProgramRun>();
        m_run->showOn(m_display);
        m_window = std::make_unique<WindowDriver>(m_display);
        m_output = std::make_unique<QTemporaryDir>();
        QVERIFY(m_run->start());
        QVERIFY(m_window->find());
    }

    void cleanup()
    {
        m_run.reset();
        QVERIFY(m_display.waitForNoWindow(u"Quorvale"_s, 30'000));
    }

    void convertsWhatIsDropped()
    {
        const MouseDrag drag(m_display);
        const QStringList names{u"av1.mkv"_s, u"vp9.webm"_s, u"h264.mp4"_s, oddName};

        QCOMPARE(drag.dropFiles({clips()}, m_window->window()), MouseDrag::End::taken);
        QVERIFY(m_window->chooseOutputFolder(m_output->path()));
        QVERIFY(m_window->convert());
        QVERIFY(waitForOutputs({u"50% #1? é_converted.mp4"_s, u"av1_converted.mp4"_s,
                                u"h264_converted.mp4"_s, u"vp9_converted.mp4"_s}));
        for (const QString &name : names)
            verifyOutput(stem(name) + u"_converted.mp4"_s, clip(name), u"h264"_s, u"aac"_s);

        // What is completed can be dropped again.
        QVERIFY(m_window->chooseCodec(OutputCodec::hevc));
        QCOMPARE(drag.dropFiles({clips()}, m_window->window()), MouseDrag::End::taken);
        QVERIFY(m_window->convert());
        QVERIFY(waitForOutputs({u"50% #1? é_converted.mp4"_s, u"50% #1? é_converted_2.mp4"_s,
                                u"av1_converted.mp4"_s, u"av1_converted_2.mp4"_s,
                                u"h264_converted.mp4"_s, u"h264_converted_2.mp4"_s,
                                u"vp9_converted.mp4"_s, u"vp9_converted_2.mp4"_s}));
        for (const QString &name : names)
            verifyOutput(stem(name) + u"_converted_2.mp4"_s, clip(name), u"hevc"_s, u"aac"_s);
    }

    void convertsASingleFile_data()
    {
        QTest::addColumn<int>("codec");
        QTest::addColumn<QString>("profile");
        QTest::newRow("ProRes 422") << static_cast<int>(OutputCodec::proRes422) << u"Standard"_s;
        QTest::newRow("ProRes 422 HQ") << static_cast<int>(OutputCodec::proRes422HQ) << u"HQ"_s;
    }
    void convertsASingleFile()
    {
        QFETCH(const int, codec);
        QFETCH(const QString, profile);
        QVERIFY(m_window->chooseCodec(static_cast<OutputCodec>(codec)));
        QVERIFY(m_window->chooseOutputFolder(m_output->path()));
        QCOMPARE(MouseDrag(m_display).dropFiles({clip(oddName)}, m_window->window()),
                 MouseDrag::End::taken);
        QVERIFY(m_window->convert());
        const QString output = u"50% #1? é_converted.mov"_s;
        QVERIFY(waitForOutputs({output}));
        verifyOutput(output, clip(oddName), u"prores"_s, u"pcm_s24le"_s);
        QCOMPARE(VideoFile::read(m_output->filePath(output)).value_or(VideoFile()).profile,
                 profile);
    }

    void refusesText()
    {
        const QByteArray before = restingPicture();
        QVERIFY(!before.isEmpty());

        // Text that names a file is still text.
        const QString text = QUrl::fromLocalFile(clip(u"h264.mp4"_s)).toString();
        QCOMPARE(MouseDrag(m_display).dropText(text, m_window->window()), MouseDrag::End::refused);
        QVERIFY(restingPicture() == before);

        // The picture would show it, had anything been taken.
        QCOMPARE(MouseDrag(m_display).dropFiles({clip(u"h264.mp4"_s)}, m_window->window()),
                 MouseDrag::End::taken);
        const QByteArray after = restingPicture();
        QVERIFY(!after.isEmpty());
        QVERIFY(after != before);
    }

private:
    const QString oddName = u"50% #1? é.mp4"_s;

    QString clips() const { return m_folder.filePath(u"clips"_s); }
    QString clip(const QString &name) const { return clips() + u'/' + name; }
    static QString stem(const QString &name) { return name.first(name.lastIndexOf(u'.')); }

    // What the screen shows when the window has the keyboard and the mouse is out of the way.
    QByteArray restingPicture()
    {
        if (!m_display.parkMouse() || !m_display.activate(m_window->window()))
            return {};
        return m_window->restingPicture();
    }

    // Waits until the output folder has exactly these files and no tool writes to them any more.
    bool waitForOutputs(const QStringList &names)
    {
        const auto isDone = [&] {
            return QDir(m_output->path()).entryList(QDir::Files, QDir::Name) == names
                   && m_run->processes().size() == 1;
        };
        if (QTest::qWaitFor(isDone, 120'000))
            return true;
        qWarning() << QDir(m_output->path()).entryList(QDir::Files, QDir::Name)
                   << m_run->processes() << m_run->standardError();
        return false;
    }

    void verifyOutput(const QString &name, const QString &source, const QString &videoCodec,
                      const QString &audioCodec)
    {
        const auto original = VideoFile::read(source);
        const auto converted = VideoFile::read(m_output->filePath(name));
        QVERIFY(original);
        QVERIFY(converted);
        QCOMPARE(converted->videoCodec, videoCodec);
        QCOMPARE(converted->audioCodec, audioCodec);
        QVERIFY2(
            std::abs(converted->duration - original->duration) <= 0.1,
            qPrintable(u"%1 s instead of %2 s"_s.arg(converted->duration).arg(original->duration)));
    }

    VirtualDisplay m_display;
    QTemporaryDir m_folder;
    std::unique_ptr<ProgramRun> m_run;
    std::unique_ptr<WindowDriver> m_window;
    std::unique_ptr<QTemporaryDir> m_output;
};

QTEST_GUILESS_MAIN(DropAndConvertTest)
#include "dropandconvert_test.moc"
