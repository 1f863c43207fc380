// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "controller/platform/portalpanel.h"
#include "support/fakeportal.h"
#include "support/patience.h"
#include "support/privatebus.h"
#include "support/recordedpanel.h"

#include <QApplication>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QWindow>

using namespace quorvale;
using namespace quorvale::test;
using namespace Qt::StringLiterals;

using Answer = std::optional<QList<QUrl>>;

namespace {

// A window that counts the clicks that reach it.
struct ClickedWindow : QWindow
{
    ClickedWindow()
    {
        resize(100, 100);
        show();
    }
    void mousePressEvent(QMouseEvent *) override { ++clicks; }

    int clicks = 0;
};

} // namespace

class PortalPanelTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_bus = std::make_unique<PrivateBus>();
        m_portal = std::make_unique<FakePortal>(m_bus->connection(u"portal"_s));
        auto otherwise = std::make_unique<RecordedPanel>();
        m_otherwise = otherwise.get();
        m_panel = std::make_unique<PortalPanel>(std::move(otherwise),
                                                [this] { return m_bus->connection(u"program"_s); });
    }

    void cleanup()
    {
        m_panel.reset();
        m_portal.reset();
        m_bus.reset();
    }

    void asksForSeveralFolders()
    {
        m_portal->whenOpen = [this] {
            m_portal->respond(FakePortal::cancelled);
        };
        m_panel->run(severalFolders);
        QCOMPARE(m_portal->calls().size(), 1);
        const FakePortal::Call call = m_portal->calls()[0];
        QCOMPARE(call.title, u"Choose a folder of videos"_s);
        QCOMPARE(call.parentWindow, QString());
        QVariantMap options = call.options;
        QVERIFY(!options.take(u"handle_token"_s).toString().isEmpty());
        QCOMPARE(options, (QVariantMap{{u"accept_label"_s, u"Add Folder"_s},
                                       {u"modal"_s, true},
                                       {u"multiple"_s, true},
                                       {u"directory"_s, true}}));
    }

    void takesFoldersOfAnyNameInTheirOrder()
    {
        const QList<QUrl> folders{
            QUrl::fromLocalFile(u"/v/z"_s), QUrl::fromLocalFile(u"/v/50% #1?%20 \"a\""_s),
            QUrl::fromLocalFile(u"/v/日本 ü"_s), QUrl::fromLocalFile(u"/v/two\nlines"_s),
            QUrl::fromLocalFile(u"/"_s)};
        QStringList uris;
        for (const QUrl &folder : folders)
            uris << folder.toString(QUrl::FullyEncoded);
        m_portal->whenOpen = [&] {
            m_portal->respond(FakePortal::success, uris);
        };
        QVERIFY(m_panel->run(severalFolders) == Answer(folders));
        QCOMPARE(m_otherwise->requests.size(), 0);
    }

    void aConfirmationWithoutFoldersIsNoCancellation()
    {
        m_portal->whenOpen = [this] {
            m_portal->respond(FakePortal::success);
        };
        QVERIFY(m_panel->run(severalFolders) == Answer(QList<QUrl>{}));
    }

    void theUserCancels_data()
    {
        QTest::addColumn<FakePortal::Response>("response");
        QTest::newRow("by the button") << FakePortal::cancelled;
        QTest::newRow("in another way") << FakePortal::other;
    }
    void theUserCancels()
    {
        QFETCH(const FakePortal::Response, response);
        m_portal->whenOpen = [&] {
            m_portal->respond(response, {u"file:///v"_s});
        };
        QVERIFY(!m_panel->run(severalFolders));
        QCOMPARE(m_otherwise->requests.size(), 0);
        QCOMPARE(m_portal->closedRequests(), 0);
    }

    void aResponseBeforeTheReplyIsHeard()
    {
        m_portal->beforeReply = [this] {
            m_portal->respond(FakePortal::success, {u"file:///v"_s});
        };
        QVERIFY(m_panel->run(severalFolders) == Answer(QList{QUrl::fromLocalFile(u"/v"_s)}));
    }

    void aRequestAtAPathOfThePortalsOwnIsHeard()
    {
        m_portal->handles = FakePortal::Handles::ownPaths;
        // The user answers once the program has heard of the path, which nobody else can tell.
        QTimer answers;
        connect(&answers, &QTimer::timeout, this,
                [this] { m_portal->respond(FakePortal::success, {u"file:///v"_s}); });
        m_portal->whenOpen = [&] {
            answers.start(100);
        };
        QVERIFY(m_panel->run(severalFolders) == Answer(QList{QUrl::fromLocalFile(u"/v"_s)}));
    }

    void opensBesideTheFoldersThatWereChosenLast()
    {
        m_portal->whenOpen = [this] {
            m_portal->respond(FakePortal::success, {u"file:///v/caf%C3%A9/a"_s, u"file:///w"_s});
        };
        m_panel->run(severalFolders);
        m_panel->run(severalFolders);
        QCOMPARE(m_portal->calls().size(), 2);
        QVERIFY(!m_portal->calls()[0].options.contains(u"current_folder"_s));
        QCOMPARE(m_portal->calls()[1].options.value(u"current_folder"_s).toByteArray(),
                 QByteArray("/v/caf\xC3\xA9\0", 9));
    }

    void otherRequestsGoToTheOtherPanel()
    {
        const QList files{QUrl::fromLocalFile(u"/v/a.mp4"_s)};
        m_otherwise->answers = {files, std::nullopt};
        QVERIFY(m_panel->run({.title = u"files"_s, .prompt = u"Add"_s, .allowsMultiple = true})
                == Answer(files));
        QVERIFY(!m_panel->run({.title = u"one folder"_s,
                               .prompt = u"Add"_s,
                               .choice = OpenPanelRequest::Choice::folders}));
        QCOMPARE(m_otherwise->requests.size(), 2);
        QCOMPARE(m_otherwise->requests[1].title, u"one folder"_s);
        QCOMPARE(m_portal->calls().size(), 0);
    }

    void theOtherPanelStepsInWithoutABus()
    {
        auto otherwise = std::make_unique<RecordedPanel>();
        RecordedPanel &asked = *otherwise;
        PortalPanel panel(std::move(otherwise), [] { return QDBusConnection(u"no bus"_s); });
        panel.run(severalFolders);
        QCOMPARE(asked.requests.size(), 1);
    }

    void theOtherPanelStepsInWithoutAPortal()
    {
        m_bus->disconnect(u"portal"_s);
        stepsIn();
    }

    void theOtherPanelStepsInForAPortalWithoutFolders()
    {
        m_portal.reset();
        m_bus->disconnect(u"portal"_s);
        m_portal = std::make_unique<FakePortal>(m_bus->connection(u"old portal"_s), 2);
        stepsIn();
        QCOMPARE(m_portal->calls().size(), 0);
    }

    void theOtherPanelStepsInForAPortalThatRefuses()
    {
        m_portal->refuses = true;
        stepsIn();
        QCOMPARE(m_portal->calls().size(), 1);
    }

    void theEndOfThePortalIsACancellation()
    {
        m_portal->whenOpen = [this] {
            m_bus->disconnect(u"portal"_s);
        };
        QVERIFY(!m_panel->run(severalFolders));
        QCOMPARE(m_otherwise->requests.size(), 0);
    }

    void theEndOfThePortalBeforeItsReplyIsACancellation()
    {
        m_portal->beforeReply = [this] {
            m_bus->disconnect(u"portal"_s);
        };
        QVERIFY(!m_panel->run(severalFolders));
        QCOMPARE(m_otherwise->requests.size(), 0);
    }

    void theEndOfTheBusIsACancellation()
    {
        m_portal->whenOpen = [this] {
            m_bus->end();
        };
        QVERIFY(!m_panel->run(severalFolders));
        QCOMPARE(m_otherwise->requests.size(), 0);
    }

    void theEndOfTheBusBeforeTheReplyIsACancellation()
    {
        m_portal->keepsSilent = true;
        m_portal->whenOpen = [this] {
            m_bus->end();
        };
        QVERIFY(!m_panel->run(severalFolders));
        QCOMPARE(m_otherwise->requests.size(), 0);
    }

    void theProgramsWindowIsShutAndAliveMeanwhile()
    {
        ClickedWindow window;
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        int clicksMeanwhile = -1;
        int turns = 0;
        m_portal->whenOpen = [&] {
            QTest::mouseClick(&window, Qt::LeftButton);
            clicksMeanwhile = window.clicks;
            QTimer::singleShot(50, this, [&] {
                ++turns;
                m_portal->respond(FakePortal::cancelled);
            });
        };
        m_panel->run(severalFolders);
        QCOMPARE(clicksMeanwhile, 0);
        QCOMPARE(turns, 1);
        QVERIFY(!QGuiApplication::modalWindow());
        QTest::mouseClick(&window, Qt::LeftButton);
        QCOMPARE(window.clicks, 1);
    }

    void theEndOfTheProgramClosesThePanel()
    {
        Answer answer(QList<QUrl>{});
        m_portal->whenOpen = [] {
            QCoreApplication::quit();
        };
        QTimer::singleShot(0, this, [&] {
            answer = m_panel->run(severalFolders);
            QCoreApplication::quit();
        });
        QCoreApplication::exec();
        QVERIFY(!answer);
        QTRY_COMPARE_WITH_TIMEOUT(m_portal->closedRequests(), 1, patience);
    }

    void theEndOfTheWindowMeanwhileDoesNoHarm()
    {
        auto window = std::make_unique<ClickedWindow>();
        QVERIFY(QTest::qWaitForWindowExposed(window.get()));
        m_portal->whenOpen = [&] {
            window.reset();
            QTimer::singleShot(0, this, [this] { m_portal->respond(FakePortal::cancelled); });
        };
        QVERIFY(!m_panel->run(severalFolders));
    }

private:
    void stepsIn()
    {
        const QList folders{QUrl::fromLocalFile(u"/v"_s)};
        m_otherwise->answers = {folders};
        QVERIFY(m_panel->run(severalFolders) == Answer(folders));
        QCOMPARE(m_otherwise->requests.size(), 1);
        QCOMPARE(m_otherwise->requests[0].title, severalFolders.title);
        QCOMPARE(m_otherwise->requests[0].prompt, severalFolders.prompt);
    }

    const OpenPanelRequest severalFolders{.title = u"Choose a folder of videos"_s,
                                          .prompt = u"Add Folder"_s,
                                          .choice = OpenPanelRequest::Choice::folders,
                                          .allowsMultiple = true};
    std::unique_ptr<PrivateBus> m_bus;
    std::unique_ptr<FakePortal> m_portal;
    RecordedPanel *m_otherwise = nullptr;
    std::unique_ptr<PortalPanel> m_panel;
};

QTEST_MAIN(PortalPanelTest)
#include "portalpanel_test.moc"
