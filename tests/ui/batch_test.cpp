// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "support/programbench.h"
#include "support/testclass.h"
#include "support/videofile.h"

#include <QTest>

#include <csignal>

using namespace quorvale::test;
using namespace Qt::StringLiterals;

using Role = AccessibleItem::Role;

// What can be done with the rows of a queue before, during and after its conversion.
class BatchTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(m_desktop.start());
        for (const QString &name : {u"a.mp4"_s, u"b.mp4"_s, u"c.mp4"_s})
            QVERIFY(makeLongVideo(clip(name), 1));
        QVERIFY(makeLongVideo(clip(u"long.mp4"_s), 3600));
        QFile broken(clip(u"broken.mp4"_s));
        QVERIFY(broken.open(QIODevice::WriteOnly) && broken.write("no video") > 0);
    }

    void init()
    {
        m_bench = std::make_unique<ProgramBench>(m_desktop);
        QVERIFY(m_bench->start());
        QVERIFY(window().chooseOutputFolder(m_bench->outputFolder()));
    }

    void cleanup() { m_bench.reset(); }

    void convertsInTheOrderThatTheButtonsMake()
    {
        queue({u"a.mp4"_s, u"b.mp4"_s, u"c.mp4"_s});
        QVERIFY(window().clickInRow(u"c.mp4"_s, u"Move up"_s));
        QVERIFY(window().waitForRows({u"a.mp4"_s, u"c.mp4"_s, u"b.mp4"_s}));
        QVERIFY(window().clickInRow(u"a.mp4"_s, u"Move down"_s));
        QVERIFY(window().waitForRows({u"c.mp4"_s, u"a.mp4"_s, u"b.mp4"_s}));
        // There is nothing above the first row.
        QVERIFY(window().clickInRow(u"c.mp4"_s, u"Move up"_s));
        QVERIFY(window().convert(3));
        QVERIFY(m_bench->waitForOutputs(
            {u"a_converted.mp4"_s, u"b_converted.mp4"_s, u"c_converted.mp4"_s}));
        QCOMPARE(m_bench->outputsByTime(),
                 (QStringList{u"c_converted.mp4"_s, u"a_converted.mp4"_s, u"b_converted.mp4"_s}));
        for (const QString &row : {u"a.mp4"_s, u"b.mp4"_s, u"c.mp4"_s})
            QVERIFY(window().waitForDescription(row, u", Complete"_s));
        QVERIFY(window().waitFor(AccessibleItem::named(Role::label, u"3 videos · 3 complete"_s)));
    }

    void convertsACompletedVideoAgain()
    {
        queue({u"a.mp4"_s});
        QVERIFY(window().convert(1));
        QVERIFY(window().waitForDescription(u"a.mp4"_s, u", Complete"_s));
        QVERIFY(window().clickInRow(u"a.mp4"_s, u"Queue this video again"_s));
        QVERIFY(window().waitForDescription(u"a.mp4"_s, u", Ready"_s));
        QVERIFY(window().convert(1));
        QVERIFY(m_bench->waitForOutputs({u"a_converted.mp4"_s, u"a_converted_2.mp4"_s}));
        QVERIFY(window().waitForDescription(u"a.mp4"_s, u", Complete"_s));
    }

    void convertsNothingThatWasRemoved()
    {
        queue({u"a.mp4"_s, u"b.mp4"_s});
        QVERIFY(window().clickInRow(u"a.mp4"_s, u"Remove from queue"_s));
        QVERIFY(window().waitForRows({u"b.mp4"_s}));
        QVERIFY(window().convert(1));
        QVERIFY(window().waitForDescription(u"b.mp4"_s, u", Complete"_s));
        QVERIFY(m_bench->waitForOutputs({u"b_converted.mp4"_s}));
    }

    void removingTheLastRowBringsBackTheDropZone()
    {
        queue({u"a.mp4"_s});
        QVERIFY(window().clickInRow(u"a.mp4"_s, u"Remove from queue"_s));
        QVERIFY(
            window().waitFor(AccessibleItem::named(Role::label, u"Drop videos or folders here"_s)));
        QVERIFY(window().waitForRows({}));
    }

    void clearsWhatIsCompleted()
    {
        queue({u"a.mp4"_s, u"broken.mp4"_s});
        QVERIFY(window().convert(2));
        QVERIFY(window().click(Role::button, u"Clear Completed"_s));
        QVERIFY(window().waitForRows({u"broken.mp4"_s}));
        QVERIFY(window().waitForNo(AccessibleItem::named(Role::button, u"Clear Completed"_s)));
    }

    void aFailureSaysWhyAndDoesNotStopTheBatch()
    {
        queue({u"broken.mp4"_s, u"b.mp4"_s});
        QVERIFY(window().convert(2));
        QVERIFY(window().waitForDescription(u"b.mp4"_s, u", Complete"_s));
        const QString reading = window().description(u"broken.mp4"_s);
        QVERIFY2(reading.contains(u", Failed, "_s), qPrintable(reading));
        QVERIFY2(reading.contains(u"Invalid data found when processing input"_s),
                 qPrintable(reading));
    }

    // ffmpeg takes the request to end, so that it is it that fails; the next is not begun.
    void cancellingEndsTheBatch()
    {
        queue({u"long.mp4"_s, u"a.mp4"_s});
        QVERIFY(window().convert(2));
        pid_t ffmpeg = 0;
        QVERIFY(m_bench->waitForTool("libx264", ffmpeg));
        // Past its start, during which it dies of the request.
        QVERIFY(window().waitForProgress(u"long.mp4"_s));
        QVERIFY(window().click(Role::button, u"Cancel"_s));
        QVERIFY(window().waitForDescription(u"long.mp4"_s, u", Failed, "_s));
        QVERIFY(window().description(u"long.mp4"_s).contains(u"received signal 2"_s));
        QVERIFY(window().waitForDescription(u"a.mp4"_s, u", Ready"_s));
        QVERIFY(window().waitFor(AccessibleItem::named(Role::button, u"Convert 2 Videos"_s)));
        QVERIFY(m_bench->waitForOutputs({u"long_converted.mp4"_s}));

        // Both are still to be converted.
        QVERIFY(window().clickInRow(u"long.mp4"_s, u"Remove from queue"_s));
        QVERIFY(window().convert(1));
        QVERIFY(window().waitForDescription(u"a.mp4"_s, u", Complete"_s));
    }

    void aKilledConversionIsCancelledAndEndsTheBatch()
    {
        queue({u"long.mp4"_s, u"a.mp4"_s});
        QVERIFY(window().convert(2));
        pid_t ffmpeg = 0;
        QVERIFY(m_bench->waitForTool("libx264", ffmpeg));
        QCOMPARE(::kill(ffmpeg, SIGKILL), 0);
        QVERIFY(window().waitForDescription(u"long.mp4"_s, u", Cancelled"_s));
        QVERIFY(window().waitForDescription(u"a.mp4"_s, u", Ready"_s));
        QVERIFY(window().waitFor(AccessibleItem::named(Role::button, u"Convert 2 Videos"_s)));
    }

    void whatComesDuringABatchWaitsForTheNext()
    {
        queue({u"long.mp4"_s});
        QVERIFY(window().convert(1));
        QVERIFY(window().waitForDescription(u"long.mp4"_s, u", Converting"_s));
        queue({u"a.mp4"_s, u"b.mp4"_s});
        QVERIFY(window().clickInRow(u"b.mp4"_s, u"Remove from queue"_s));
        QVERIFY(window().waitForRows({u"long.mp4"_s, u"a.mp4"_s}));
        QVERIFY(window().waitForDescription(u"long.mp4"_s, u", Converting"_s));
        QVERIFY(window().click(Role::button, u"Cancel"_s));
        QVERIFY(window().waitFor(AccessibleItem::named(Role::button, u"Convert 2 Videos"_s)));
        QVERIFY(window().waitForDescription(u"a.mp4"_s, u", Ready"_s));
    }

    // As by session launchers and by scripts that run it in the background.
    void aStarterThatIgnoresAndBlocksSignalsChangesNothing()
    {
        m_bench = std::make_unique<ProgramBench>(m_desktop);
        m_bench->run().process().setPreparation([] {
            std::signal(SIGCHLD, SIG_IGN);
            std::signal(SIGINT, SIG_IGN);
            sigset_t blocked;
            ::sigfillset(&blocked);
            ::sigprocmask(SIG_SETMASK, &blocked, nullptr);
        });
        QVERIFY(m_bench->start());
        QVERIFY(window().chooseOutputFolder(m_bench->outputFolder()));
        queue({u"a.mp4"_s, u"long.mp4"_s});
        QVERIFY(window().convert(2));
        QVERIFY(window().waitForDescription(u"a.mp4"_s, u", Complete"_s));
        QVERIFY(window().waitForProgress(u"long.mp4"_s));
        QVERIFY(window().click(Role::button, u"Cancel"_s));
        QVERIFY(window().waitForDescription(u"long.mp4"_s, u"received signal 2"_s));
    }

private:
    QString clip(const QString &name) const { return m_folder.filePath(name); }
    const WindowDriver &window() const { return m_bench->window(); }

    void queue(const QStringList &names)
    {
        QStringList paths;
        for (const QString &name : names)
            paths << clip(name);
        QVERIFY(m_bench->queue(paths));
    }

    VirtualDesktop m_desktop;
    QTemporaryDir m_folder;
    std::unique_ptr<ProgramBench> m_bench;
};

QUORVALE_TEST(BatchTest)
#include "batch_test.moc"
