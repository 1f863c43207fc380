// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "support/dragsource.h"
#include "support/patience.h"
#include "support/programbench.h"
#include "support/standinservice.h"
#include "support/testclass.h"
#include "support/videofile.h"

#include <QTest>

#include <csignal>

using namespace quorvale::test;
using namespace Qt::StringLiterals;

using Role = AccessibleItem::Role;

// A batch as the window and the real ffmpeg make it.
class BatchTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        for (const QString &name : {u"a.mp4"_s, u"b.mp4"_s, u"c.mp4"_s})
            QVERIFY(makeVideo(clip(name), 1));
        QVERIFY(makeVideo(clip(u"long.mp4"_s), 3600));
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
        QCOMPARE(m_bench->outputs(QDir::Time | QDir::Reversed),
                 (QStringList{u"c_converted.mp4"_s, u"a_converted.mp4"_s, u"b_converted.mp4"_s}));
        for (const QString &row : {u"a.mp4"_s, u"b.mp4"_s, u"c.mp4"_s})
            QVERIFY(window().waitForDescription(row, u", Complete"_s));
        QVERIFY(window().waitFor(AccessibleItem::named(Role::label, u"3 videos · 3 complete"_s)));
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

    void theMachineStaysAwakeMeanwhile()
    {
        const StandInService sessionManager(m_desktop.session(), u"org.gnome.SessionManager"_s,
                                            {{u"Inhibit"_s, {StandInService::reply({7U})}},
                                             {u"Uninhibit"_s, {StandInService::reply()}}});
        queue({u"a.mp4"_s});
        QCOMPARE(sessionManager.calls(u"Inhibit"_s).size(), 0);
        QVERIFY(window().convert(1));
        QTRY_COMPARE_WITH_TIMEOUT(sessionManager.calls(u"Inhibit"_s).size(), 1, patience);
        QVERIFY(window().waitForDescription(u"a.mp4"_s, u", Complete"_s));
        QTRY_COMPARE_WITH_TIMEOUT(sessionManager.calls(u"Uninhibit"_s),
                                  QList<QVariantList>(1, {7U}), patience);
    }

    // Which another window than the program's can have the user miss.
    void theEndIsNoticed()
    {
        const VirtualDisplay &display = m_desktop.display();
        queue({u"a.mp4"_s, u"b.mp4"_s});
        const DragSource other(display, display.environment(), {clip(u"a.mp4"_s)});
        const auto otherWindow = display.waitForWindow(u"Drag source"_s);
        QVERIFY(otherWindow);
        QVERIFY(window().convert(2));
        pid_t ffmpeg = 0;
        QVERIFY(m_bench->waitForTool("libx264", ffmpeg));
        ::kill(ffmpeg, SIGSTOP); // until the user has turned to something else
        QVERIFY(display.activate(*otherWindow));
        QVERIFY(!display.demandsAttention(window().window()));
        ::kill(ffmpeg, SIGCONT);
        QTRY_VERIFY_WITH_TIMEOUT(display.demandsAttention(window().window()), patience);
        QVERIFY(window().description(u"b.mp4"_s).endsWith(u", Complete"_s));
        QVERIFY(window().activate());
        QTRY_VERIFY_WITH_TIMEOUT(!display.demandsAttention(window().window()), patience);

        // Nor where it is looked at.
        QVERIFY(window().clickInRow(u"a.mp4"_s, u"Queue this video again"_s));
        QVERIFY(window().convert(1));
        QVERIFY(window().waitForDescription(u"a.mp4"_s, u", Complete"_s));
        QVERIFY(window().waitFor(AccessibleItem::named(Role::button, u"Convert 0 Videos"_s)));
        QVERIFY(!display.demandsAttention(window().window()));
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
