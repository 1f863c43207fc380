// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "support/patience.h"
#include "support/programrun.h"
#include "support/testclass.h"
#include "support/virtualdesktop.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <csignal>
#include <memory>

using namespace quorvale::test;
using namespace Qt::StringLiterals;

using Role = AccessibleItem::Role;

// The program, when it is started with files and while it runs already.
class OneInstanceTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        for (const QByteArray name : {"a.mp4", "b.mp4", "-c.mp4", "caf\xe9.mp4"}) {
            std::FILE *file =
                std::fopen((QFile::encodeName(m_folder.path()) + '/' + name).constData(), "wb");
            QVERIFY(file);
            std::fclose(file);
        }
    }

    void cleanup()
    {
        m_runs.clear();
        QVERIFY(m_desktop.display().waitForNoWindow(u"Quorvale"_s, patience));
    }

    void theFilesOfTheStartAreQueued()
    {
        const ProgramRun &run = start(
            {u"--help"_s, u"b.mp4"_s, path(u"a.mp4"_s), u"--"_s, u"-c.mp4"_s, u"notes.txt"_s});
        verifyRows(run, {u"-c.mp4"_s, u"a.mp4"_s, u"b.mp4"_s});
        QVERIFY(run.complaints().isEmpty());
    }

    void aSecondStartHandsItsFilesToTheFirst()
    {
        const ProgramRun &first = start({u"a.mp4"_s});
        verifyRows(first, {u"a.mp4"_s});
        ProgramRun &second = start({u"b.mp4"_s, u"./a.mp4"_s});
        QCOMPARE(second.waitForEnd(), std::optional(0));
        QCOMPARE(second.complaints(), QByteArray());
        verifyRows(first, {u"a.mp4"_s, u"b.mp4"_s});
        verifyWindows(1);
    }

    void aNameThatIsNoTextIsHandedOver()
    {
        const ProgramRun &first = start();
        verifyWindows(1);
        // QProcess has only text for the words of a command.
        ProgramRun &second = add(u"/bin/sh"_s);
        QVERIFY(second.start({u"-c"_s, u"exec \"$0\" \"$(printf 'caf\\351.mp4')\""_s,
                              QStringLiteral(QUORVALE_PROGRAM)}));
        QCOMPARE(second.waitForEnd(), std::optional(0));
        verifyRows(first, {u"caf\uFFFD.mp4"_s});
    }

    void aSecondStartBringsTheWindowToTheFront_data()
    {
        QTest::addColumn<bool>("isMinimised");
        QTest::newRow("from behind another") << false;
        QTest::newRow("from out of sight") << true;
    }
    void aSecondStartBringsTheWindowToTheFront()
    {
        QFETCH(const bool, isMinimised);
        start();
        const VirtualDisplay &display = m_desktop.display();
        const auto window = display.waitForWindow(u"Quorvale"_s);
        QVERIFY(window);
        ChildOfTheTest other;
        other.setProcessEnvironment(display.environment());
        other.start(QStringLiteral(DRAG_SOURCE), {m_folder.path()});
        const auto otherWindow = display.waitForWindow(u"Drag source"_s);
        QVERIFY(otherWindow);
        if (isMinimised) {
            QVERIFY(display.xdotool({u"windowminimize"_s, *window}));
            QVERIFY(display.waitForNoWindow(u"Quorvale"_s, patience));
        }
        QVERIFY(display.activate(*otherWindow));
        ProgramRun &second = start();
        QCOMPARE(second.waitForEnd(), std::optional(0));
        const auto hasKeyboard = [&] {
            return display.xdotool({u"getwindowfocus"_s}).value_or("").trimmed()
                   == window->toLatin1();
        };
        QVERIFY(QTest::qWaitFor(hasKeyboard, patience));
    }

    void oneOfTwoStartsAtOnceHasTheWindow()
    {
        ProgramRun &one = start({u"a.mp4"_s});
        ProgramRun &other = start({u"b.mp4"_s});
        QTRY_VERIFY_WITH_TIMEOUT(one.isRunning() != other.isRunning(), patience);
        const ProgramRun &first = one.isRunning() ? one : other;
        const auto areThere = [&] {
            QStringList names = rows(first);
            names.sort();
            return names == QStringList{u"a.mp4"_s, u"b.mp4"_s};
        };
        QVERIFY(QTest::qWaitFor(areThere, patience));
        QCOMPARE((one.isRunning() ? other : one).waitForEnd(), std::optional(0));
        verifyWindows(1);
    }

    void besideAFirstThatHangsASecondHasAWindowOfItsOwn()
    {
        const ProgramRun &first = start();
        verifyWindows(1);
        QVERIFY(m_desktop.application(first.id()));
        QCOMPARE(::kill(first.id(), SIGSTOP), 0);
        const ProgramRun &second = start({u"a.mp4"_s});
        verifyWindows(2);
        verifyRows(second, {u"a.mp4"_s});

        // The first finds later what it was asked, and leaves it at that.
        QCOMPARE(::kill(first.id(), SIGCONT), 0);
        QVERIFY(application(first)->find(AccessibleItem::named(Role::button, u"Choose Videos"_s)));
        QTest::qWait(200);
        verifyRows(first, {});
        // The next start is for it again.
        ProgramRun &third = start({u"b.mp4"_s});
        QCOMPARE(third.waitForEnd(), std::optional(0));
        verifyRows(first, {u"b.mp4"_s});
    }

    void whoHasAWindowOfItsOwnComesNextWhenTheFirstHasGone()
    {
        const ProgramRun &first = start();
        verifyWindows(1);
        QCOMPARE(::kill(first.id(), SIGSTOP), 0);
        const ProgramRun &second = start({u"a.mp4"_s});
        verifyWindows(2);
        QCOMPARE(::kill(first.id(), SIGKILL), 0);
        verifyWindows(1);
        ProgramRun &third = start({u"b.mp4"_s});
        QCOMPARE(third.waitForEnd(), std::optional(0));
        verifyRows(second, {u"a.mp4"_s, u"b.mp4"_s});
    }

    // Whichever comes first: no file gets lost with a program that ends.
    void afterAFirstThatIsAboutToEndASecondHasTheWindow_data()
    {
        QTest::addColumn<int>("milliseconds");
        for (const int milliseconds : {0, 20, 60, 100, 150, 250})
            QTest::addRow("%d ms before", milliseconds) << milliseconds;
    }
    void afterAFirstThatIsAboutToEndASecondHasTheWindow()
    {
        QFETCH(const int, milliseconds);
        ProgramRun &first = start();
        const auto window = m_desktop.display().waitForWindow(u"Quorvale"_s);
        QVERIFY(window);
        QVERIFY(application(first));
        QVERIFY(m_desktop.display().activate(*window));
        const ProgramRun &second = start({u"a.mp4"_s});
        QTest::qWait(milliseconds);
        QVERIFY(m_desktop.display().xdotool({u"key"_s, u"ctrl+q"_s}));
        QCOMPARE(first.waitForEnd(), std::optional(0));
        // Or the first has had it in its queue before it was told to end.
        if (QTest::qWaitFor([&] { return !second.isRunning(); }, 1500))
            return;
        verifyRows(second, {u"a.mp4"_s});
    }

    void withoutASessionBusEachHasItsWindow_data()
    {
        QTest::addColumn<QString>("address");
        QTest::newRow("none") << u"disabled:"_s;
        QTest::newRow("one that has gone") << u"unix:path=/no/such/bus"_s;
    }
    void withoutASessionBusEachHasItsWindow()
    {
        QFETCH(const QString, address);
        for (int i = 0; i < 2; ++i) {
            ProgramRun &run = add();
            run.set(u"DBUS_SESSION_BUS_ADDRESS"_s, address);
            QVERIFY(run.start({u"a.mp4"_s}));
        }
        verifyWindows(2);
        for (const auto &run : m_runs) {
            QVERIFY(run->isRunning());
            QCOMPARE(run->complaints(), QByteArray());
        }
    }

private:
    QString path(const QString &name) const { return m_folder.filePath(name); }

    // Works in the folder of the files.
    ProgramRun &add(const QString &executable = QStringLiteral(QUORVALE_PROGRAM))
    {
        m_runs.push_back(std::make_unique<ProgramRun>(executable));
        m_runs.back()->showOn(m_desktop);
        m_runs.back()->process().setWorkingDirectory(m_folder.path());
        return *m_runs.back();
    }
    ProgramRun &start(const QStringList &words = {})
    {
        ProgramRun &run = add();
        if (!run.start(words))
            qFatal("The program cannot be started.");
        return run;
    }

    std::optional<AccessibleItem> application(const ProgramRun &run) const
    {
        std::optional<AccessibleItem> application;
        const auto isOnTheBus = [&] {
            if (!isShown(run))
                return false;
            application = m_desktop.application(run.id());
            return application && !application->children().isEmpty();
        };
        if (!QTest::qWaitFor(isOnTheBus, patience))
            qWarning("The program does not come to the accessibility bus.");
        return application;
    }

    // Before it shows its window, nobody can ask it about that.
    bool isShown(const ProgramRun &run) const
    {
        const VirtualDisplay &display = m_desktop.display();
        return std::ranges::any_of(display.windows(u"Quorvale"_s), [&](const QString &window) {
            return display.xdotool({u"getwindowpid"_s, window}).value_or("").trimmed().toInt()
                   == run.id();
        });
    }

    QStringList rows(const ProgramRun &run) const
    {
        QStringList names;
        const auto program = application(run);
        const auto list =
            program ? program->find(AccessibleItem::named(Role::list, u"Conversion queue"_s))
                    : std::nullopt;
        if (list) {
            for (const AccessibleItem &row : list->findAll(Role::listItem))
                names << row.name();
        }
        return names;
    }

    void verifyRows(const ProgramRun &run, const QStringList &names) const
    {
        QStringList found;
        const auto areThere = [&] {
            found = rows(run);
            return found == names;
        };
        QVERIFY2(QTest::qWaitFor(areThere, patience), qPrintable(found.join(u", "_s)));
    }
    void verifyWindows(int count) const
    {
        QTRY_COMPARE_WITH_TIMEOUT(m_desktop.display().windows(u"Quorvale"_s).size(), count,
                                  patience);
    }

    VirtualDesktop m_desktop;
    QTemporaryDir m_folder;
    std::vector<std::unique_ptr<ProgramRun>> m_runs;
};

QUORVALE_TEST(OneInstanceTest)
#include "oneinstance_test.moc"
