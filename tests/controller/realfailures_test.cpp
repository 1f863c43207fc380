// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "controller/converterviewmodel.h"
#include "controller/shownjob.h"
#include "support/clips.h"
#include "support/patience.h"
#include "support/permissions.h"
#include "support/queue.h"
#include "support/testclass.h"
#include "support/toolrun.h"

#include <QFile>
#include <QTest>

using namespace quorvale;
using namespace quorvale::test;
using namespace Qt::StringLiterals;

// What a row says first about a failure of the machine's own ffmpeg.
class RealFailuresTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        useMachineTools();
        letPermissionsBind();
        m_clip = makeClip(u"h264.mp4"_s, QDir(m_folder.path()));
        m_opusClip = makeClip(u"av1.mkv"_s, QDir(m_folder.path()));
        m_longClip = m_folder.filePath(u"long.mp4"_s);
        repeatClip(m_clip, 900, m_longClip);
        m_text = m_folder.filePath(u"text.mp4"_s);
        QFile text(m_text);
        QVERIFY(text.open(QIODevice::WriteOnly) && text.write("Not a video.\n") > 0);
    }

    void aCancelledConversion_data()
    {
        QTest::addColumn<OutputCodec>("codec");
        QTest::newRow("H.264") << OutputCodec::h264;
        QTest::newRow("HEVC") << OutputCodec::hevc;
        QTest::newRow("ProRes") << OutputCodec::proRes422;
    }
    void aCancelledConversion()
    {
        QFETCH(const OutputCodec, codec);
        Queue queue(Tools::machine);
        ConverterViewModel &controller = queue.model();
        controller.setSettings({.codec = codec, .useHardware = false});
        QVERIFY(queue.drop(m_longClip, 1));
        controller.start();
        QTRY_VERIFY_WITH_TIMEOUT(controller.jobs().first().progress > 0, patience);
        controller.cancel();
        QVERIFY(queue.awaitEnd());
        QCOMPARE(reason(queue), u"Exiting normally, received signal 2."_s);
    }

    void aFolderThatMayNotBeWritten()
    {
        Queue queue(Tools::machine);
        QVERIFY(queue.drop(m_clip, 1));
        const QString folder = queue.outputs().path();
        QVERIFY(QFile::setPermissions(folder, QFile::ReadOwner | QFile::ExeOwner));
        const bool hasRun = queue.runBatch();
        QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        QVERIFY(hasRun);
        const QString first = firstLine(queue);
        QVERIFY2(first.endsWith(folder + u"/h264_converted.mp4: Permission denied"_s),
                 qPrintable(first));
    }

    void audioThatTheContainerDoesNotTake()
    {
        Queue queue(Tools::machine);
        queue.model().setSettings(
            {.codec = OutputCodec::proRes422, .audio = AudioMode::copy, .useHardware = false});
        QVERIFY(queue.drop(m_opusClip, 1));
        QVERIFY(queue.runBatch());
        const QString first = firstLine(queue);
        QVERIFY2(first.endsWith(u"opus only supported in MP4."_s), qPrintable(first));
    }

    void aSourceThatIsNoVideo()
    {
        Queue queue(Tools::machine);
        QVERIFY(queue.drop(m_text, 1));
        QVERIFY(queue.runBatch());
        const QString first = firstLine(queue);
        QVERIFY2(first.endsWith(u"moov atom not found"_s), qPrintable(first));
    }

    void aSourceThatHasGone()
    {
        Queue queue(Tools::machine);
        const QString path = queue.sources().filePath(u"gone.mp4"_s);
        QVERIFY(QFile::copy(m_clip, path));
        QVERIFY(queue.drop(path, 1));
        QVERIFY(QFile::remove(path));
        QVERIFY(queue.runBatch());
        const QString first = firstLine(queue);
        QVERIFY2(first.endsWith(u"No such file or directory"_s), qPrintable(first));
    }

private:
    static QString reason(const Queue &queue)
    {
        return ShownJob(queue.model().jobs().first()).mainMessage();
    }

    static QString firstLine(const Queue &queue) { return reason(queue).section(u'\n', 0, 0); }

    QTemporaryDir m_folder;
    QString m_clip;
    QString m_opusClip;
    QString m_longClip;
    QString m_text;
};

QUORVALE_TEST(RealFailuresTest)
#include "realfailures_test.moc"
