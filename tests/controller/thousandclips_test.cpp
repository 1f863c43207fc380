// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "controller/converterviewmodel.h"
#include "support/leftovers.h"
#include "support/queue.h"
#include "support/testclass.h"
#include "support/toolrun.h"

#include <QTest>
#include <QThread>

using namespace quorvale;
using namespace quorvale::test;
using namespace Qt::StringLiterals;

// A long queue with the machine's own ffmpeg.
class ThousandClipsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nothingGrowsFromTheHundredthToTheLast()
    {
        constexpr int count = 1000;
        constexpr int early = 100;
        Queue queue(Tools::machine);
        ConverterViewModel &model = queue.model();
        const QString clip = queue.sources().filePath(u"0.mp4"_s);
        QVERIFY(runFFmpeg({u"-f"_s, u"lavfi"_s, u"-i"_s, u"testsrc=duration=0.1:size=32x32"_s,
                           u"-c:v"_s, u"mpeg4"_s, clip})
                    .succeeded);
        for (int i = 1; i < count; ++i)
            QVERIFY(QFile::copy(clip, queue.sources().filePath(u"%1.mp4"_s.arg(i))));
        QVERIFY(queue.drop(queue.sources().path(), count));
        // Each clip is encoded once, not once more without the media engine.
        QVERIFY(model.setProperty("useHardware", false));

        Holdings holdingsEarly;
        qint64 memoryEarly = 0;
        connect(model.jobModel(), &JobListModel::changed, this, [&] {
            if (holdingsEarly.threads == 0 && model.completedCount() == early) {
                holdingsEarly = Holdings::now();
                memoryEarly = residentMemory();
            }
        });
        QVERIFY(queue.runBatch());
        const Holdings holdings = Holdings::now();
        const qint64 grown = residentMemory() - memoryEarly;

        QCOMPARE(model.completedCount(), count);
        QCOMPARE(queue.outputs().entryList(QDir::Files).size(), count);
        QCOMPARE(holdings.children, 0);
        QVERIFY(holdingsEarly.threads > 0);
        // The pool has a thread more when a job comes before its predecessor's is free, and such a
        // thread has a descriptor of its own.
        const auto spare = static_cast<qsizetype>(QThread::idealThreadCount());
        QVERIFY2(holdings.threads <= holdingsEarly.threads + spare, "threads");
        QVERIFY2(holdings.descriptors <= holdingsEarly.descriptors + 2 * spare, "descriptors");
        QVERIFY2(grown < 4 * 1024 * 1024, qPrintable(QString::number(grown)));
    }
};

QUORVALE_TEST(ThousandClipsTest)
#include "thousandclips_test.moc"
