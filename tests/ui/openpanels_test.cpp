// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "support/patience.h"
#include "support/programbench.h"
#include "support/standinportal.h"
#include "support/testclass.h"
#include "support/videofile.h"

#include <QDir>
#include <QTest>
#include <QUrl>

using namespace quorvale::test;
using namespace Qt::StringLiterals;

using Role = AccessibleItem::Role;

// The panels that add to the queue and the menu that opens them, by keyboard.
class OpenPanelsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        for (const QString &name : {u"a.mp4"_s, u"b.mkv"_s, u"notes.txt"_s})
            QVERIFY(QFile(m_folder.filePath(name)).open(QIODevice::WriteOnly));
        QVERIFY(makeVideo(m_longFolder.filePath(u"long.mp4"_s), 3600));
    }

    void init()
    {
        m_bench = std::make_unique<ProgramBench>(m_desktop);
        QVERIFY(m_bench->start());
        QVERIFY(window().activate());
    }

    void cleanup() { m_bench.reset(); }

    void aShortcutOpensItsPanel_data()
    {
        QTest::addColumn<QString>("shortcut");
        QTest::addColumn<QString>("title");
        QTest::newRow("videos") << u"ctrl+o"_s << videoPanel;
        QTest::newRow("folder") << u"ctrl+shift+o"_s << folderPanel;
    }
    void aShortcutOpensItsPanel()
    {
        QFETCH(const QString, shortcut);
        QFETCH(const QString, title);
        verifyOpensOnce(shortcut, title);
    }

    void aShortcutWorksFromEverywhere_data() { aShortcutOpensItsPanel_data(); }
    void aShortcutWorksFromEverywhere()
    {
        QFETCH(const QString, shortcut);
        QFETCH(const QString, title);
        QVERIFY(m_bench->drop({m_folder.path()}));
        QVERIFY(window().waitForRows({u"a.mp4"_s, u"b.mkv"_s}));
        for (const auto &place : {AccessibleItem::named(Role::radioButton, u"H.264"_s),
                                  AccessibleItem::named(Role::comboBox, u"Audio"_s),
                                  AccessibleItem::named(Role::button, u"Add Videos"_s),
                                  AccessibleItem::named(Role::listItem, u"a.mp4"_s),
                                  AccessibleItem::beginning(Role::button, u"Save to "_s),
                                  AccessibleItem::named(Role::button, u"Convert 2 Videos"_s)}) {
            QVERIFY(window().activate());
            QVERIFY(window().tabTo(place));
            verifyOpensOnce(shortcut, title);
        }
        QCOMPARE(window().rowNames(), (QStringList{u"a.mp4"_s, u"b.mkv"_s}));
    }

    void aShortcutWorksDuringAConversion_data() { aShortcutOpensItsPanel_data(); }
    void aShortcutWorksDuringAConversion()
    {
        QFETCH(const QString, shortcut);
        QFETCH(const QString, title);
        QVERIFY(window().chooseOutputFolder(m_bench->outputFolder()));
        QVERIFY(m_bench->drop({m_longFolder.path()}));
        QVERIFY(window().convert(1));
        QVERIFY(window().waitForDescription(u"long.mp4"_s, u", Converting"_s));
        QVERIFY(window().activate());
        verifyOpensOnce(shortcut, title);
        QVERIFY(window().description(u"long.mp4"_s).contains(u", Converting"_s));
    }

    void abandoningTheOutputFolderPanelKeepsTheFolder()
    {
        QVERIFY(window().chooseOutputFolder(m_bench->outputFolder()));
        QVERIFY(window().click(AccessibleItem::beginning(Role::button, u"Save to "_s)));
        abandon(u"Choose output folder"_s);
        QVERIFY(window().waitFor(
            AccessibleItem::named(Role::button, u"Save to "_s + m_bench->outputFolder())));
    }

    void thePortalChoosesVideosAndTheOutputFolder()
    {
        StandInPortal portal(m_desktop.session());
        const auto urlOf = [](const QString &path) {
            return QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded);
        };
        portal.prepare(u"OpenFile"_s,
                       {StandInService::replyRequest(),
                        StandInPortal::respond(StandInPortal::success,
                                               {urlOf(m_folder.filePath(u"a.mp4"_s))})});
        QVERIFY(window().press(u"ctrl+o"_s));
        QVERIFY(window().waitForRows({u"a.mp4"_s}));
        portal.prepare(u"OpenFile"_s,
                       {StandInService::replyRequest(),
                        StandInPortal::respond(StandInPortal::success, {urlOf(m_folder.path())})});
        QVERIFY(window().click(AccessibleItem::beginning(Role::button, u"Save to "_s)));
        QVERIFY(
            window().waitFor(AccessibleItem::named(Role::button, u"Save to "_s + m_folder.path())));
        QTRY_COMPARE_WITH_TIMEOUT(portal.calls(u"OpenFile"_s).size(), 2, patience);
        QCOMPARE(window().application().children().size(), 1);
        // They belong to the window.
        const QString parent = u"x11:"_s + QString::number(window().window().toUInt(), 16);
        for (const QVariantList &call : portal.calls(u"OpenFile"_s))
            QCOMPARE(call.value(0).toString(), parent);
    }

    void nothingOpensBesideThePortalsChooser()
    {
        StandInPortal portal(m_desktop.session());
        QVERIFY(window().press(u"ctrl+shift+o"_s));
        QTRY_COMPARE_WITH_TIMEOUT(portal.calls(u"OpenFile"_s).size(), 1, patience);
        QVERIFY(window().press(u"ctrl+o"_s));
        QVERIFY(window().press(u"ctrl+shift+o"_s));
        QVERIFY(window().act(u"Press"_s, Role::radioButton, u"H.265 (HEVC)"_s));
        // The menu, which may open, comes after what those would have done.
        QVERIFY(window().press(u"F10"_s));
        QVERIFY(window().waitFor(AccessibleItem::named(Role::menuItem, u"Quit"_s)));
        for (const QString &title : {videoPanel, folderPanel})
            QVERIFY(m_desktop.display().windows(title).isEmpty());
        QVERIFY(window().press(u"Escape"_s));
        QVERIFY(window().waitFor([](const AccessibleItem &item) {
            return AccessibleItem::named(Role::radioButton, u"H.264"_s)(item)
                   && item.is(AccessibleItem::State::checked);
        }));

        const QString folder = QUrl::fromLocalFile(m_folder.path()).toString(QUrl::FullyEncoded);
        portal.perform({StandInPortal::respond(StandInPortal::success, {folder})});
        QVERIFY(window().waitForRows({u"a.mp4"_s, u"b.mkv"_s}));
        QCOMPARE(portal.calls(u"OpenFile"_s).size(), 1);
        portal.prepare(u"OpenFile"_s, {StandInService::refuse()});
        verifyOpensOnce(u"ctrl+o"_s, videoPanel);
    }

    void thePanelOfTheProgramStepsInForAPortalThatFails()
    {
        StandInPortal portal(m_desktop.session());
        portal.prepare(u"OpenFile"_s, {StandInService::replyRequest(),
                                       StandInPortal::respond(StandInPortal::other)});
        verifyOpensOnce(u"ctrl+shift+o"_s, folderPanel);
        verifyOpensOnce(u"ctrl+o"_s, videoPanel);
        QTRY_COMPARE_WITH_TIMEOUT(portal.calls(u"OpenFile"_s).size(), 2, patience);
    }

    void aPortalsChooserThatTheUserClosesIsCancelled()
    {
        StandInPortal portal(m_desktop.session());
        QVERIFY(window().act(u"Press"_s, Role::button, u"Folder"_s));
        QTRY_COMPARE_WITH_TIMEOUT(portal.calls(u"OpenFile"_s).size(), 1, patience);
        {
            ChildOfTheTest chooser; // what stands for its window
            chooser.setProcessEnvironment(m_desktop.display().environment());
            chooser.start(QStringLiteral(DRAG_SOURCE), {m_folder.path()});
            const auto chooserWindow = m_desktop.display().waitForWindow(u"Drag source"_s);
            QVERIFY(chooserWindow);
            QVERIFY(m_desktop.display().activate(*chooserWindow));
            const auto own =
                window().application().find(AccessibleItem::named(Role::frame, u"Quorvale"_s));
            QVERIFY(own);
            QTRY_VERIFY_WITH_TIMEOUT(!own->is(AccessibleItem::State::active), patience);
        }
        portal.perform({StandInPortal::respond(StandInPortal::other)});
        QTRY_COMPARE_WITH_TIMEOUT(window().application().children().size(), 1, patience);
        // Were there another panel now, this would open none.
        QVERIFY(window().act(u"Press"_s, Role::button, u"Folder"_s));
        QTRY_COMPARE_WITH_TIMEOUT(portal.calls(u"OpenFile"_s).size(), 2, patience);
        QVERIFY(m_desktop.display().windows(folderPanel).isEmpty());
    }

    void pressesOnTheWindowCloseAChooserThatNobodySees()
    {
        StandInPortal portal(m_desktop.session());
        QVERIFY(window().press(u"ctrl+o"_s));
        QTRY_COMPARE_WITH_TIMEOUT(portal.calls(u"OpenFile"_s).size(), 1, patience);
        const auto middle = AccessibleItem::named(Role::frame, u"Quorvale"_s);
        QTRY_VERIFY_WITH_TIMEOUT(window().click(middle) && !portal.calls(u"Close"_s).isEmpty(),
                                 patience);
        QVERIFY(window().press(u"ctrl+o"_s));
        QTRY_COMPARE_WITH_TIMEOUT(portal.calls(u"OpenFile"_s).size(), 2, patience);
        QVERIFY(m_desktop.display().windows(videoPanel).isEmpty());
    }

    void theShortcutOfANewWindowDoesNothing()
    {
        const QByteArray before = window().restingPicture();
        QVERIFY(!before.isEmpty());
        QVERIFY(window().press(u"ctrl+n"_s));
        QTest::qWait(1000);
        QVERIFY(window().restingPicture() == before);
        QCOMPARE(m_desktop.display().windows(u"Quorvale"_s).size(), 1);
        QCOMPARE(window().application().children().size(), 1);
    }

    void theMenuHoldsTheCommandsThatAddAndTheOneThatQuits()
    {
        openMenu();
        QStringList names;
        for (const AccessibleItem &entry : window().application().findAll(Role::menuItem))
            names << entry.name();
        QCOMPARE(names, (QStringList{u"Add Videos…"_s, u"Add Folder…"_s, u"Quit"_s}));
        QVERIFY(window().press(u"Escape"_s));
        QVERIFY(window().waitForNo(AccessibleItem::named(Role::menuItem, u"Quit"_s)));
    }

    void theMenuOpensThePanels_data()
    {
        QTest::addColumn<int>("steps");
        QTest::addColumn<QString>("title");
        QTest::newRow("videos") << 1 << videoPanel;
        QTest::newRow("folder") << 2 << folderPanel;
    }
    void theMenuOpensThePanels()
    {
        QFETCH(const int, steps);
        QFETCH(const QString, title);
        openMenu();
        for (int step = 0; step < steps; ++step)
            QVERIFY(window().press(u"Down"_s));
        verifyOpensOnce(u"Return"_s, title);
        QVERIFY(window().waitForNo(AccessibleItem::named(Role::menuItem, u"Quit"_s)));
    }

    void theMenuQuits_data()
    {
        QTest::addColumn<bool>("byShortcut");
        QTest::newRow("by its entry") << false;
        QTest::newRow("by its shortcut") << true;
    }
    void theMenuQuits()
    {
        QFETCH(const bool, byShortcut);
        if (byShortcut) {
            QVERIFY(window().press(u"ctrl+q"_s));
        } else {
            openMenu();
            for (int step = 0; step < 3; ++step)
                QVERIFY(window().press(u"Down"_s));
            QVERIFY(window().press(u"Return"_s));
        }
        QCOMPARE(m_bench->run().waitForEnd(), std::optional(0));
    }

private:
    const QString videoPanel = u"Choose videos to convert"_s;
    const QString folderPanel = u"Choose a folder of videos"_s;

    const WindowDriver &window() const { return m_bench->window(); }

    void openMenu()
    {
        QVERIFY(
            window().tabTo([](const AccessibleItem &item) { return item.name() == u"File"_s; }));
        QVERIFY(window().press(u"space"_s));
        QVERIFY(window().waitFor(AccessibleItem::named(Role::menuItem, u"Quit"_s)));
    }

    // Abandons the panel, behind which no other is.
    void abandon(const QString &title)
    {
        QVERIFY(window().abandonPanel(title));
        QTest::qWait(500);
        QVERIFY(m_desktop.display().windows(title).isEmpty());
        QCOMPARE(window().application().children().size(), 1);
    }

    void verifyOpensOnce(const QString &shortcut, const QString &title)
    {
        QVERIFY(window().press(shortcut));
        QVERIFY(window().openPanel(title));
        QCOMPARE(m_desktop.display().windows(title).size(), 1);
        QCOMPARE(window().application().children().size(), 2);
        abandon(title);
    }

    VirtualDesktop m_desktop;
    QTemporaryDir m_folder;
    QTemporaryDir m_longFolder;
    std::unique_ptr<ProgramBench> m_bench;
};

QUORVALE_TEST(OpenPanelsTest)
#include "openpanels_test.moc"
