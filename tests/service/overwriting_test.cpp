// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "support/clips.h"
#include "support/conversion.h"
#include "support/testclass.h"
#include "support/toolrun.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace quorvale;
using namespace quorvale::test;
using namespace Qt::StringLiterals;

// What the machine's own ffmpeg makes of an output file that is there already.
class OverwritingTest : public QObject
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
        QFile file(output());
        QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        QCOMPARE(file.write(contents), contents.size());
    }

    void anOutputThatExistsIsRefusedAndStays_data()
    {
        QTest::addColumn<bool>("useHardware");
        QTest::newRow("with the media engine") << true;
        QTest::newRow("with the software encoder") << false;
    }
    void anOutputThatExistsIsRefusedAndStays()
    {
        QFETCH(const bool, useHardware);
        const ConversionEnd end = convert({.useHardware = useHardware, .overwrite = false});
        QCOMPARE(outputContents(), contents);
        QVERIFY(end.ffmpegError == FFmpegError::Case::processFailed);
        QVERIFY2(end.message.contains(u"already exists"_s), qPrintable(end.message));
    }

    void anOutputThatExistsIsReplacedWhenAsked()
    {
        const ConversionEnd end = convert({.useHardware = false, .overwrite = true});
        QVERIFY2(end.isSuccess(), qPrintable(end.message));
        QVERIFY(outputContents().contains("moov"));
    }

private:
    QString output() const { return m_folder.filePath(u"output.mp4"_s); }

    QByteArray outputContents() const
    {
        QFile file(output());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    ConversionEnd convert(const ConversionSettings &settings)
    {
        return endOf(m_service.convert(QUrl::fromLocalFile(m_clip), QUrl::fromLocalFile(output()),
                                       settings, [](double) {}));
    }

    const QByteArray contents = "what the user keeps";
    QTemporaryDir m_folder;
    QString m_clip;
    FFmpegService m_service;
};

QUORVALE_TEST(OverwritingTest)
#include "overwriting_test.moc"
