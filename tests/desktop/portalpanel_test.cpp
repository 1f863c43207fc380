// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "desktop/portalpanel.h"
#include "desktop/videonamefilter.h"
#include "support/patience.h"
#include "support/privatebus.h"
#include "support/recordedpanel.h"
#include "support/standinportal.h"
#include "support/testclass.h"

#include <QApplication>
#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QDir>
#include <QTest>
#include <QTimer>
#include <QWindow>

#include <climits>
#include <functional>

using namespace quorvale;
using namespace quorvale::test;
using namespace Qt::StringLiterals;

using Answer = std::optional<QList<QUrl>>;

Q_DECLARE_METATYPE(quorvale::OpenPanelRequest)

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
        m_portal = std::make_unique<StandInPortal>(*m_bus);
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

    void asksForFolders_data()
    {
        QTest::addColumn<OpenPanelRequest>("request");
        QTest::newRow("several") << severalFolders;
        QTest::newRow("one for the output") << outputFolder;
    }
    void asksForFolders()
    {
        QFETCH(const OpenPanelRequest, request);
        answer(StandInPortal::cancelled);
        m_panel->run(request);
        QTRY_COMPARE_WITH_TIMEOUT(opened().size(), 1, patience);
        QCOMPARE(opened()[0].first(2), (QVariantList{QString(), request.title}));
        QVariantMap options = openedWith(0);
        QVERIFY(!options.take(u"handle_token"_s).toString().isEmpty());
        QCOMPARE(options, (QVariantMap{{u"accept_label"_s, request.prompt},
                                       {u"modal"_s, true},
                                       {u"multiple"_s, request.allowsMultiple},
                                       {u"current_folder"_s, home()},
                                       {u"directory"_s, true}}));
    }

    void asksForVideos()
    {
        answer(StandInPortal::success, {u"file:///v/b.mp4"_s, u"file:///v/a.mkv"_s});
        QVERIFY(m_panel->run(videos)
                == Answer(
                    QList{QUrl::fromLocalFile(u"/v/b.mp4"_s), QUrl::fromLocalFile(u"/v/a.mkv"_s)}));
        QCOMPARE(m_otherwise->requests.size(), 0);
        QTRY_COMPARE_WITH_TIMEOUT(opened().size(), 1, patience);
        QCOMPARE(opened()[0].first(2), (QVariantList{QString(), videos.title}));
        QVariantMap options = openedWith(0);
        QVERIFY(!options.take(u"handle_token"_s).toString().isEmpty());
        const QStringList shown = shownBy(options.take(u"filters"_s));
        QCOMPARE(shown, QStringList(u"Videos"_s) + videoNamePatterns());
        QCOMPARE(options, (QVariantMap{{u"accept_label"_s, videos.prompt},
                                       {u"modal"_s, true},
                                       {u"multiple"_s, true},
                                       {u"current_folder"_s, home()}}));
    }

    void takesTheOutputFolder()
    {
        answer(StandInPortal::success, {u"file:///v/new"_s});
        QVERIFY(m_panel->run(outputFolder) == Answer(QList{QUrl::fromLocalFile(u"/v/new"_s)}));
        QCOMPARE(m_otherwise->requests.size(), 0);
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
        answer(StandInPortal::success, uris);
        QVERIFY(m_panel->run(severalFolders) == Answer(folders));
        QCOMPARE(m_otherwise->requests.size(), 0);
    }

    void aConfirmationWithoutFoldersIsNoCancellation()
    {
        answer(StandInPortal::success);
        QVERIFY(m_panel->run(severalFolders) == Answer(QList<QUrl>{}));
    }

    void theUserCancels()
    {
        answer(StandInPortal::cancelled, {u"file:///v"_s});
        QVERIFY(!m_panel->run(severalFolders));
        QCOMPARE(m_otherwise->requests.size(), 0);
    }

    void theOtherPanelStepsInForAnyOtherResponse()
    {
        for (const uint response : {2U, 3U, UINT_MAX}) {
            m_otherwise->requests.clear();
            answer(response, {u"file:///portal"_s});
            stepsIn();
        }
    }

    void aChooserThatHasRespondedIsNotClosed()
    {
        for (const uint response : {0U, 1U, 2U, 1U}) {
            answer(response);
            m_panel->run(severalFolders);
        }
        // What would have closed one of the first three came before the fourth.
        QTRY_COMPARE_WITH_TIMEOUT(opened().size(), 4, patience);
        QCOMPARE(m_portal->calls(u"Close"_s).size(), 0);
    }

    void aResponseBeforeTheReplyIsHeard()
    {
        m_portal->prepare(u"OpenFile"_s,
                          {StandInPortal::respond(StandInPortal::success, {u"file:///v"_s}),
                           StandInService::replyRequest()});
        QVERIFY(m_panel->run(severalFolders) == Answer(QList{QUrl::fromLocalFile(u"/v"_s)}));
    }

    void aRequestAtAPathOfThePortalsOwnIsHeard()
    {
        const QString path = u"/org/freedesktop/portal/desktop/request/own"_s;
        m_portal->prepare(u"OpenFile"_s,
                          {StandInService::reply({QVariant::fromValue(QDBusObjectPath(path))})});
        // The user answers once the program has heard of the path, which nobody else can tell.
        QTimer answers;
        connect(&answers, &QTimer::timeout, this, [&] {
            m_portal->perform(
                {StandInPortal::respond(StandInPortal::success, {u"file:///v"_s}, path)});
        });
        whenOpen([&] { answers.start(100); });
        QVERIFY(m_panel->run(severalFolders) == Answer(QList{QUrl::fromLocalFile(u"/v"_s)}));
    }

    void opensBesideTheFoldersThatWereChosenLast()
    {
        answer(StandInPortal::success, {u"file:///v/caf%E9/a"_s, u"file:///w"_s});
        m_panel->run(severalFolders);
        m_panel->run(severalFolders);
        QTRY_COMPARE_WITH_TIMEOUT(opened().size(), 2, patience);
        QCOMPARE(openedWith(0).value(u"current_folder"_s), home());
        QCOMPARE(openedWith(1).value(u"current_folder"_s), QVariant(QByteArray("/v/caf\xE9\0", 8)));
    }

    void eachPanelHasAPlaceOfItsOwn()
    {
        answer(StandInPortal::success, {u"file:///in/a.mp4"_s});
        m_panel->run(videos);
        answer(StandInPortal::success, {u"file:///out/a"_s});
        m_panel->run(outputFolder);
        m_panel->run(videos);
        m_panel->run(outputFolder);
        QTRY_COMPARE_WITH_TIMEOUT(opened().size(), 4, patience);
        for (const int first : {0, 1})
            QCOMPARE(openedWith(first).value(u"current_folder"_s), home());
        QCOMPARE(openedWith(2).value(u"current_folder"_s), QVariant(QByteArray("/in\0", 4)));
        QCOMPARE(openedWith(3).value(u"current_folder"_s), QVariant(QByteArray("/out\0", 5)));
    }

    void theFirstPortalIsAskedForVideos()
    {
        m_portal->end();
        m_portal = std::make_unique<StandInPortal>(*m_bus, QVariant(), 1);
        answer(StandInPortal::success, {u"file:///v/a.mp4"_s});
        QVERIFY(m_panel->run(videos) == Answer(QList{QUrl::fromLocalFile(u"/v/a.mp4"_s)}));
        QCOMPARE(m_otherwise->requests.size(), 0);
    }

    void theOtherPanelStepsInForEachOfThem()
    {
        m_portal->prepare(u"OpenFile"_s, {StandInService::refuse()});
        for (const OpenPanelRequest &request : {videos, severalFolders, outputFolder})
            m_panel->run(request);
        QCOMPARE(m_otherwise->requests.size(), 3);
        QCOMPARE(m_otherwise->requests[0].title, videos.title);
        QCOMPARE(m_otherwise->requests[2].title, outputFolder.title);
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
        m_portal->end();
        stepsIn();
    }

    void theOtherPanelStepsInForAPortalWithoutFolders()
    {
        m_portal->end();
        m_portal = std::make_unique<StandInPortal>(*m_bus, QVariant(), 2);
        answer(StandInPortal::success, {u"file:///portal"_s});
        stepsIn();
        QCOMPARE(opened().size(), 0);
    }

    void theFirstPortalWithFoldersIsAsked()
    {
        m_portal->end();
        m_portal = std::make_unique<StandInPortal>(*m_bus, QVariant(), 3);
        answer(StandInPortal::success, {u"file:///v"_s});
        QVERIFY(m_panel->run(severalFolders) == Answer(QList{QUrl::fromLocalFile(u"/v"_s)}));
        QCOMPARE(m_otherwise->requests.size(), 0);
    }

    void theOtherPanelStepsInForAPortalThatRefuses()
    {
        m_portal->prepare(u"OpenFile"_s, {StandInService::refuse()});
        stepsIn();
        QTRY_COMPARE_WITH_TIMEOUT(opened().size(), 1, patience);
    }

    // The user has asked for a panel and not abandoned it.
    void theOtherPanelStepsInWhenThePortalEnds()
    {
        whenOpen([this] { m_portal->end(); });
        stepsIn();
        QCOMPARE(opened().size(), 1);
    }

    void theOtherPanelStepsInWhenThePortalEndsBeforeItsReply_data()
    {
        QTest::addColumn<QString>("method");
        QTest::newRow("of its version") << u"Get"_s;
        QTest::newRow("of the request") << u"OpenFile"_s;
    }
    void theOtherPanelStepsInWhenThePortalEndsBeforeItsReply()
    {
        QFETCH(const QString, method);
        m_portal->prepare(method, {StandInService::endItself()});
        stepsIn();
        QTRY_VERIFY_WITH_TIMEOUT(!m_portal->isRunning(), patience);
    }

    void theOtherPanelStepsInWhenTheBusEnds_data()
    {
        QTest::addColumn<QString>("method");
        QTest::addColumn<StandInService::Script>("script");
        QTest::newRow("and the chooser is open")
            << u"OpenFile"_s << StandInService::Script{StandInService::replyRequest()};
        QTest::newRow("before the reply of its version") << u"Get"_s << StandInService::Script{};
        QTest::newRow("before the reply of the request")
            << u"OpenFile"_s << StandInService::Script{};
    }
    void theOtherPanelStepsInWhenTheBusEnds()
    {
        QFETCH(const QString, method);
        QFETCH(const StandInService::Script, script);
        m_portal->prepare(method, script);
        connect(m_portal.get(), &StandInService::called, this, [&](const QString &called) {
            if (called == method)
                m_bus->end();
        });
        stepsIn();
        QCOMPARE(m_portal->calls(method).size(), 1);
    }

    void theProgramsWindowIsShutAndAliveMeanwhile()
    {
        ClickedWindow window;
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        int clicksMeanwhile = -1;
        int turns = 0;
        whenOpen([&] {
            QTest::mouseClick(&window, Qt::LeftButton);
            clicksMeanwhile = window.clicks;
            QTimer::singleShot(50, this, [&] {
                ++turns;
                m_portal->perform({StandInPortal::respond(StandInPortal::cancelled)});
            });
        });
        m_panel->run(severalFolders);
        QCOMPARE(clicksMeanwhile, 0);
        QCOMPARE(turns, 1);
        QTest::mouseClick(&window, Qt::LeftButton);
        QCOMPARE(window.clicks, 1);
    }

    // As the user may not see it any more.
    void escapeInTheProgramsWindowClosesAChooser()
    {
        ClickedWindow window;
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        whenOpen([&] {
            QTest::keyClick(&window, Qt::Key_Escape);
            QTimer::singleShot(1000, &window, [&] { // so that a test that fails ends
                m_portal->perform({StandInPortal::respond(StandInPortal::success)});
            });
        });
        QVERIFY(!m_panel->run(severalFolders));
        QTRY_COMPARE_WITH_TIMEOUT(m_portal->calls(u"Close"_s).size(), 1, patience);
        QCOMPARE(m_otherwise->requests.size(), 0);
    }

    void theEndOfTheProgramClosesThePanel_data()
    {
        QTest::addColumn<QString>("method");
        QTest::addColumn<StandInService::Script>("script");
        QTest::addColumn<int>("closed");
        QTest::newRow("that is open")
            << u"OpenFile"_s << StandInService::Script{StandInService::replyRequest()} << 1;
        QTest::newRow("before the reply of its version")
            << u"Get"_s << StandInService::Script{} << 0;
        QTest::newRow("before the reply of the request")
            << u"OpenFile"_s << StandInService::Script{} << 1;
    }
    void theEndOfTheProgramClosesThePanel()
    {
        QFETCH(const QString, method);
        QFETCH(const StandInService::Script, script);
        QFETCH(const int, closed);
        m_portal->prepare(method, script);
        connect(m_portal.get(), &StandInService::called, this, [&](const QString &called) {
            if (called == method)
                QCoreApplication::quit();
        });
        Answer answer(QList<QUrl>{});
        QTimer::singleShot(0, this, [&] { answer = m_panel->run(severalFolders); });
        QCoreApplication::exec();
        QVERIFY(!answer);
        QCOMPARE(m_otherwise->requests.size(), 0);
        QTRY_COMPARE_WITH_TIMEOUT(m_portal->calls(u"Close"_s).size(), closed, patience);
    }

    void theEndOfTheWindowMeanwhileDoesNoHarm()
    {
        auto window = std::make_unique<ClickedWindow>();
        QVERIFY(QTest::qWaitForWindowExposed(window.get()));
        whenOpen([&] {
            window.reset();
            m_portal->perform({StandInPortal::respond(StandInPortal::cancelled)});
        });
        QVERIFY(!m_panel->run(severalFolders));
    }

private:
    // Has the user answer every chooser as soon as it is open.
    void answer(uint response, const QStringList &uris = {})
    {
        m_portal->prepare(u"OpenFile"_s,
                          {StandInService::replyRequest(), StandInPortal::respond(response, uris)});
    }

    void whenOpen(const std::function<void()> &happens)
    {
        connect(m_portal.get(), &StandInService::called, this, [happens](const QString &method) {
            if (method == u"OpenFile"_s)
                happens();
        });
    }

    static QVariant home() { return QFile::encodeName(QDir::homePath()).append('\0'); }
    QList<QVariantList> opened() const { return m_portal->calls(u"OpenFile"_s); }
    QVariantMap openedWith(qsizetype number) const
    {
        return qdbus_cast<QVariantMap>(opened()[number][2]);
    }

    // The labels and the patterns of the filters, whose type is a(sa(us)).
    static QStringList shownBy(const QVariant &filters)
    {
        QStringList shown;
        const auto argument = filters.value<QDBusArgument>();
        argument.beginArray();
        while (!argument.atEnd()) {
            QString label;
            argument.beginStructure();
            argument >> label;
            shown << label;
            argument.beginArray();
            while (!argument.atEnd()) {
                uint kind = UINT_MAX;
                QString pattern;
                argument.beginStructure();
                argument >> kind >> pattern;
                argument.endStructure();
                shown << (kind == 0 ? pattern : u"a MIME type"_s);
            }
            argument.endArray();
            argument.endStructure();
        }
        argument.endArray();
        return shown;
    }

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
    const OpenPanelRequest videos{.title = u"Choose videos to convert"_s,
                                  .prompt = u"Add Videos"_s,
                                  .choice = OpenPanelRequest::Choice::videos,
                                  .allowsMultiple = true};
    const OpenPanelRequest outputFolder{.title = u"Choose output folder"_s,
                                        .prompt = u"Choose"_s,
                                        .choice = OpenPanelRequest::Choice::folders,
                                        .canCreateFolders = true};
    std::unique_ptr<PrivateBus> m_bus;
    std::unique_ptr<StandInPortal> m_portal;
    RecordedPanel *m_otherwise = nullptr;
    std::unique_ptr<PortalPanel> m_panel;
};

QUORVALE_TEST(PortalPanelTest)
#include "portalpanel_test.moc"
