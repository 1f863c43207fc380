// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "support/clips.h"
#include "support/conversion.h"
#include "support/faultyread.h"
#include "support/filetree.h"
#include "support/testclass.h"
#include "support/toolrun.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

using namespace quorvale;
using namespace quorvale::test;
using namespace Qt::StringLiterals;

// That a conversion by the machine's own ffmpeg fails when its source cannot be read to its end,
// and says so when the source has none.
class WholeSourceTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { useMachineTools(); }

    void aDiskThatFailsAnywhereIsJudgedRight_data()
    {
        QTest::addColumn<QString>("name");
        for (const QString &name : {u"h264.mp4"_s, u"hevc.mov"_s, u"undated.mkv"_s, u"vp9.webm"_s,
                                    u"mpeg2.ts"_s, u"flash.flv"_s, u"mpeg4.avi"_s})
            QTest::newRow(qPrintable(name)) << name;
    }
    void aDiskThatFailsAnywhereIsJudgedRight()
    {
        QFETCH(const QString, name);
        // Its name has lines, and a character that ffmpeg does not print.
        const QString source = m_folder.filePath(u"\x01two\nlines "_s + name);
        // With its index at the beginning, so that ffmpeg comes as far as the fault.
        const ToolRun made = runFFmpeg({u"-i"_s, makeClip(name, QDir(m_folder.path())), u"-c"_s,
                                        u"copy"_s, u"-movflags"_s, u"+faststart"_s, source});
        QVERIFY2(made.succeeded, made.errors.constData());
        FaultyRead disk;
        QCOMPARE(convert(source).message, QString());
        const qint64 size = QFileInfo(source).size();
        for (const int percent : {1, 50, 95}) {
            disk.set(source, size * percent / 100);
            const ConversionEnd end = convert(source);
            QVERIFY(disk.hasFailed());
            QVERIFY2(end.ffmpegError == FFmpegError::Case::processFailed,
                     qPrintable(u"from %1 % on: %2"_s.arg(percent).arg(end.message)));
        }
    }

    void aHalfOfASourceIsRemarkedOn_data()
    {
        QTest::addColumn<QString>("extension");
        for (const char *extension : {"mp4", "mov", "mkv", "flv"})
            QTest::newRow(extension) << QString::fromLatin1(extension);
    }
    void aHalfOfASourceIsRemarkedOn()
    {
        QFETCH(const QString, extension);
        const QString clip = makeClip(u"h264.mp4"_s, QDir(m_folder.path()));
        const QString source = m_folder.filePath(u"long."_s + extension);
        // With what announces the length at the beginning, as cameras and downloads have it.
        const ToolRun made = runFFmpeg({u"-stream_loop"_s, u"9"_s, u"-i"_s, clip, u"-c"_s,
                                        u"copy"_s, u"-movflags"_s, u"+faststart"_s, source});
        QVERIFY2(made.succeeded, made.errors.constData());
        ConversionEnd end = convert(source);
        QCOMPARE(end.message, QString());
        QVERIFY(!end.earlyEnd);

        QVERIFY(QFile::resize(source, QFileInfo(source).size() / 2));
        end = convert(source);
        QCOMPARE(end.message, QString());
        QVERIFY(end.earlyEnd);
        QVERIFY2(end.earlyEnd->reached > 4.0 && end.earlyEnd->reached < 6.0,
                 qPrintable(remark(*end.earlyEnd)));
        QVERIFY2(end.earlyEnd->duration > 9.5 && end.earlyEnd->duration < 10.5,
                 qPrintable(remark(*end.earlyEnd)));
    }

    // Whatever a source says, and wherever ffmpeg repeats it.
    void nothingInASourceMakesItFail_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("output");
        QTest::addColumn<QString>("key");
        const QString error = u"[in#0/mov @ 0x55d0] Error during demuxing: Input/output error"_s;
        const QString ownError = m_folder.filePath(u"key.mp4"_s) + u": Input/output error"_s;
        QTest::newRow("a line of a name")
            << u"a\n"_s + error + u"\n.mp4"_s << u"a.mp4"_s << QString();
        QTest::newRow("a line of an output")
            << u"a.mp4"_s << u"a\n"_s + error + u"\n.mp4"_s << QString();
        for (const QString &line : {error, ownError})
            QTest::addRow("a line of a key: %s", qPrintable(line.left(5)))
                << u"key.mp4"_s << u"a.mp4"_s << u"a\n"_s + line + u"\nb"_s;
    }
    void nothingInASourceMakesItFail()
    {
        QFETCH(const QString, name);
        QFETCH(const QString, output);
        QFETCH(const QString, key);
        const QString clip = makeClip(u"h264.mp4"_s, QDir(m_folder.path()));
        const QString source = m_folder.filePath(name);
        QVERIFY(QDir().mkpath(QFileInfo(source).path()));
        const ToolRun made =
            runFFmpeg({u"-i"_s, clip, u"-c"_s, u"copy"_s, u"-movflags"_s, u"use_metadata_tags"_s,
                       u"-metadata"_s, key + u"=c"_s, u"file:"_s + source});
        QVERIFY2(made.succeeded, made.errors.constData());
        QCOMPARE(convert(source, output).message, QString());
    }

private:
    ConversionEnd convert(const QString &source, const QString &output = u"a.mp4"_s)
    {
        const QUrl destination = QUrl::fromLocalFile(m_folder.filePath(u"out/"_s + output));
        return endOf(m_service.convert(
            QUrl::fromLocalFile(source), destination,
            {.goal = EncodingGoal::constantQuality, .useHardware = false, .overwrite = true},
            [](double) {}));
    }

    QTemporaryDir m_folder;
    FFmpegService m_service;
};

QUORVALE_TEST(WholeSourceTest)
#include "wholesource_test.moc"
