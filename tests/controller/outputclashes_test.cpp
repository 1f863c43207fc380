// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "controller/converterviewmodel.h"
#include "support/clips.h"
#include "support/conversionbench.h"
#include "support/mediafacts.h"
#include "support/testclass.h"
#include "support/toolrun.h"

#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QTest>

using namespace quorvale;
using namespace quorvale::test;
using namespace Qt::StringLiterals;

class OutputClashesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        useMachineTools();
        const QString clip = makeClip(u"h264.mp4"_s, QDir(m_folder.path()));
        // Two sources of the same name, told apart by their titles.
        for (const QString &folder : {u"first"_s, u"second"_s}) {
            QVERIFY(QDir(m_folder.path()).mkpath(u"tree/"_s + folder));
            retitleClip(clip, folder, m_folder.filePath(u"tree/%1/clip.mp4"_s.arg(folder)));
        }
    }

    void sourcesOfOneNameGetOutputsOfTheirOwn()
    {
        ConversionBench bench;
        QVERIFY(convertTree(bench, {}));

        QCOMPARE(titles(bench), (Titles{{u"clip_converted.mp4"_s, u"first"_s},
                                        {u"clip_converted_2.mp4"_s, u"second"_s}}));
    }

    void aLaterRunTakesTheNextFreeNames()
    {
        ConversionBench bench;
        QVERIFY(convertTree(bench, {}));
        const Contents before = contents(bench);
        QCOMPARE(before.size(), 2);

        QVERIFY(convertTree(bench, {}));

        const Contents after = contents(bench);
        for (const auto &[name, bytes] : before.asKeyValueRange())
            QVERIFY2(after.value(name) == bytes, qPrintable(name));
        QCOMPARE(titles(bench), (Titles{{u"clip_converted.mp4"_s, u"first"_s},
                                        {u"clip_converted_2.mp4"_s, u"second"_s},
                                        {u"clip_converted_3.mp4"_s, u"first"_s},
                                        {u"clip_converted_4.mp4"_s, u"second"_s}}));
    }

    void aGapAmongTheNamesIsFilled()
    {
        ConversionBench bench;
        write(bench.outputs().filePath(u"clip_converted.mp4"_s), "someone's own");
        write(bench.outputs().filePath(u"clip_converted_3.mp4"_s), "someone's other");

        QVERIFY(convertTree(bench, {}));

        const Contents after = contents(bench);
        QCOMPARE(after.value(u"clip_converted.mp4"_s), "someone's own");
        QCOMPARE(after.value(u"clip_converted_3.mp4"_s), "someone's other");
        QCOMPARE(titles(bench), (Titles{{u"clip_converted.mp4"_s, {}},
                                        {u"clip_converted_2.mp4"_s, u"first"_s},
                                        {u"clip_converted_3.mp4"_s, {}},
                                        {u"clip_converted_4.mp4"_s, u"second"_s}}));
    }

    void aLinkThatLeadsNowhereTakesAName()
    {
        ConversionBench bench;
        const QString target = bench.outputs().filePath(u"not there"_s);
        const QString link = bench.outputs().filePath(u"clip_converted.mp4"_s);
        QVERIFY(QFile::link(target, link));

        QVERIFY(convertTree(bench, {}));

        QCOMPARE(QFile::symLinkTarget(link), target);
        QVERIFY(!QFileInfo::exists(target));
        QCOMPARE(titles(bench), (Titles{{u"clip_converted_2.mp4"_s, u"first"_s},
                                        {u"clip_converted_3.mp4"_s, u"second"_s}}));
    }

    void anotherContainerIsNoClash()
    {
        ConversionBench bench;
        QVERIFY(convertTree(bench, {.codec = OutputCodec::proRes422}));
        QVERIFY(convertTree(bench, {}));

        QCOMPARE(titles(bench).keys(),
                 (QStringList{u"clip_converted.mov"_s, u"clip_converted.mp4"_s,
                              u"clip_converted_2.mov"_s, u"clip_converted_2.mp4"_s}));
    }

    void overwritingReplacesWhatIsThere()
    {
        ConversionBench bench;
        write(bench.outputs().filePath(u"clip_converted.mp4"_s), "someone's own");
        write(bench.outputs().filePath(u"clip_converted_2.mp4"_s), "someone's other");

        QVERIFY(convertTree(bench, {.overwrite = true}));

        // Both sources went to the same name, one after the other.
        QCOMPARE(titles(bench),
                 (Titles{{u"clip_converted.mp4"_s, u"second"_s}, {u"clip_converted_2.mp4"_s, {}}}));
        QCOMPARE(contents(bench).value(u"clip_converted_2.mp4"_s), "someone's other");
    }

    void overwritingReplacesAnEarlierRun()
    {
        ConversionBench bench;
        QVERIFY(convertTree(bench, {.overwrite = true}));
        QVERIFY(convertTree(bench, {.codec = OutputCodec::hevc, .overwrite = true}));

        QCOMPARE(titles(bench), (Titles{{u"clip_converted.mp4"_s, u"second"_s}}));
        const QString output = bench.outputs().filePath(u"clip_converted.mp4"_s);
        QCOMPARE(mediaFacts(output).videoCodec, u"hevc"_s);
    }

private:
    using Titles = QMap<QString, QString>;      // by file name
    using Contents = QMap<QString, QByteArray>; // by file name

    // Whether a batch with both sources, dropped as one folder, converts them.
    bool convertTree(ConversionBench &bench, const ConversionSettings &settings) const
    {
        ConverterViewModel &controller = bench.controller();
        controller.clearCompleted();
        controller.setSettings(settings);
        return bench.drop(m_folder.filePath(u"tree"_s), 2) && bench.runBatch()
               && isCompleted(controller.jobs().first().state)
               && isCompleted(controller.jobs().last().state);
    }

    static void write(const QString &path, const QByteArray &bytes)
    {
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("Cannot write %s", qPrintable(path));
    }

    static Contents contents(const ConversionBench &bench)
    {
        Contents contents;
        for (const QString &name : bench.outputs().entryList(QDir::Files)) {
            QFile file(bench.outputs().filePath(name));
            if (!file.open(QIODevice::ReadOnly))
                qFatal("Cannot read %s", qPrintable(file.fileName()));
            contents[name] = file.readAll();
        }
        return contents;
    }

    static Titles titles(const ConversionBench &bench)
    {
        Titles titles;
        for (const QString &name : bench.outputs().entryList(QDir::Files))
            titles[name] = mediaFacts(bench.outputs().filePath(name)).title;
        return titles;
    }

    QTemporaryDir m_folder;
};

QUORVALE_TEST(OutputClashesTest)
#include "outputclashes_test.moc"
