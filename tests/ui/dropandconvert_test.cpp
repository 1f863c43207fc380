// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "support/programbench.h"
#include "support/testclass.h"
#include "support/videofile.h"

#include <QDir>
#include <QTest>

#include <cmath>
#include <filesystem>

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
        QVERIFY(m_desktop.start());
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

    void convertsWhatIsDropped_data()
    {
        QTest::addColumn<QString>("backend");
        QTest::newRow("usual renderer") << QString();
        QTest::newRow("software renderer") << u"software"_s;
    }
    void convertsWhatIsDropped()
    {
        QFETCH(const QString, backend);
        ProgramBench bench(m_desktop);
        if (!backend.isEmpty())
            bench.run().set(u"QT_QUICK_BACKEND"_s, backend);
        QVERIFY(bench.start());
        const QStringList names{oddName, u"av1.mkv"_s, u"h264.mp4"_s, u"vp9.webm"_s};

        QVERIFY(bench.drop({clips()}));
        QVERIFY(bench.window().waitForRows(names));
        QVERIFY(bench.window().chooseOutputFolder(bench.outputFolder()));
        QVERIFY(bench.window().convert(4));
        QVERIFY(bench.waitForOutputs({u"50% #1? é_converted.mp4"_s, u"av1_converted.mp4"_s,
                                      u"h264_converted.mp4"_s, u"vp9_converted.mp4"_s}));
        for (const QString &name : names)
            verifyOutput(bench.output(stem(name) + u"_converted.mp4"_s), clip(name), u"h264"_s,
                         u"aac"_s);

        // What is completed can be dropped again.
        QVERIFY(bench.window().chooseCodec(OutputCodec::hevc));
        QVERIFY(bench.drop({clips()}));
        QVERIFY(bench.window().convert(4));
        QVERIFY(bench.waitForOutputs({u"50% #1? é_converted.mp4"_s, u"50% #1? é_converted_2.mp4"_s,
                                      u"av1_converted.mp4"_s, u"av1_converted_2.mp4"_s,
                                      u"h264_converted.mp4"_s, u"h264_converted_2.mp4"_s,
                                      u"vp9_converted.mp4"_s, u"vp9_converted_2.mp4"_s}));
        for (const QString &name : names)
            verifyOutput(bench.output(stem(name) + u"_converted_2.mp4"_s), clip(name), u"hevc"_s,
                         u"aac"_s);
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
        ProgramBench bench(m_desktop);
        QVERIFY(bench.start());
        QVERIFY(bench.window().chooseCodec(static_cast<OutputCodec>(codec)));
        QVERIFY(bench.window().chooseOutputFolder(bench.outputFolder()));
        QVERIFY(bench.drop({clip(oddName)}));
        QVERIFY(bench.window().convert(1));
        const QString output = u"50% #1? é_converted.mov"_s;
        QVERIFY(bench.waitForOutputs({output}));
        verifyOutput(bench.output(output), clip(oddName), u"prores"_s, u"pcm_s24le"_s);
        QCOMPARE(VideoFile::read(bench.output(output)).value_or(VideoFile()).profile, profile);
    }

    // As file managers give it, and with a host, as some do.
    void convertsAFileWhoseNameIsNoText()
    {
        namespace fs = std::filesystem;
        const fs::path source = m_folder.filePath(u"caf"_s).toStdString() + "\xe9.mp4";
        fs::copy_file(clip(u"h264.mp4"_s).toStdString(), source);
        ProgramBench bench(m_desktop);
        QVERIFY(bench.start());
        QVERIFY(bench.window().chooseOutputFolder(bench.outputFolder()));
        const QByteArray path = QByteArray::fromStdString(source).toPercentEncoding("/");
        QVERIFY(bench.drop({QString::fromLatin1("file://localhost" + path)}));
        const QString row = u"caf\uFFFD.mp4"_s;
        QVERIFY(bench.window().waitForRows({row}));
        QVERIFY(bench.window().convert(1));
        QVERIFY(bench.window().waitForDescription(row, u", Complete"_s));
        QVERIFY(fs::exists(bench.outputFolder().toStdString() + "/caf\xe9_converted.mp4"));
    }

    void refusesText()
    {
        ProgramBench bench(m_desktop);
        QVERIFY(bench.start());
        // Text that names a file is still text.
        const QString text = QUrl::fromLocalFile(clip(u"h264.mp4"_s)).toString();
        QCOMPARE(MouseDrag(m_desktop.display()).dropText(text, bench.window().window()),
                 MouseDrag::End::refused);

        // What is taken later shows first, if anything is taken at all.
        QVERIFY(bench.drop({clip(u"av1.mkv"_s)}));
        QVERIFY(bench.window().waitForRows({u"av1.mkv"_s}));
    }

private:
    const QString oddName = u"50% #1? é.mp4"_s;

    QString clips() const { return m_folder.filePath(u"clips"_s); }
    QString clip(const QString &name) const { return clips() + u'/' + name; }
    static QString stem(const QString &name) { return name.first(name.lastIndexOf(u'.')); }

    void verifyOutput(const QString &path, const QString &source, const QString &videoCodec,
                      const QString &audioCodec)
    {
        const auto original = VideoFile::read(source);
        const auto converted = VideoFile::read(path);
        QVERIFY(original);
        QVERIFY(converted);
        QCOMPARE(converted->videoCodec, videoCodec);
        QCOMPARE(converted->audioCodec, audioCodec);
        QVERIFY2(
            std::abs(converted->duration - original->duration) <= 0.1,
            qPrintable(u"%1 s instead of %2 s"_s.arg(converted->duration).arg(original->duration)));
    }

    VirtualDesktop m_desktop;
    QTemporaryDir m_folder;
};

QUORVALE_TEST(DropAndConvertTest)
#include "dropandconvert_test.moc"
