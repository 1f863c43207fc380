// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "controller/converterviewmodel.h"
#include "support/filetree.h"
#include "support/recordedfilemanager.h"
#include "support/recordedpanel.h"
#include "support/searches.h"
#include "support/testclass.h"

#include <QFileInfo>
#include <QSignalSpy>
#include <QTest>

#include <array>
#include <functional>
#include <utility>

using namespace quorvale;
using namespace quorvale::test;
using namespace Qt::StringLiterals;

namespace {

// A panel that runs `during` while it is open for the first time. Has `chosen` chosen each time.
struct OpenedPanel : OpenPanel
{
    std::optional<QList<QUrl>> run(const OpenPanelRequest &) override
    {
        ++runs;
        if (const auto now = std::exchange(during, nullptr))
            now();
        return chosen;
    }

    std::function<void()> during;
    QList<QUrl> chosen{QUrl::fromLocalFile(u"/out"_s)};
    int runs = 0;
};

} // namespace

using Choice = OpenPanelRequest::Choice;

// What the controller asks of its panels and what it makes of their answers.
class OpenPanelTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        auto panel = std::make_unique<RecordedPanel>();
        m_panel = panel.get();
        m_model =
            ConverterViewModel::create(std::move(panel), std::make_unique<RecordedFileManager>());
    }

    void asksForEach_data()
    {
        QTest::addColumn<Operation>("choose");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("prompt");
        QTest::addColumn<Choice>("choice");
        QTest::addColumn<bool>("allowsMultiple");
        QTest::addColumn<bool>("canCreateFolders");
        QTest::newRow("files") << &ConverterViewModel::chooseFiles << u"Choose videos to convert"_s
                               << u"Add Videos"_s << Choice::videos << true << false;
        QTest::newRow("folders") << &ConverterViewModel::chooseFolder
                                 << u"Choose a folder of videos"_s << u"Add Folder"_s
                                 << Choice::folders << true << false;
        QTest::newRow("output") << &ConverterViewModel::chooseDestination
                                << u"Choose output folder"_s << u"Choose"_s << Choice::folders
                                << false << true;
    }
    void asksForEach()
    {
        QFETCH(const Operation, choose);
        QFETCH(const QString, title);
        QFETCH(const QString, prompt);
        QFETCH(const Choice, choice);
        QFETCH(const bool, allowsMultiple);
        QFETCH(const bool, canCreateFolders);
        std::invoke(choose, *m_model);
        QCOMPARE(m_panel->requests.size(), 1);
        const OpenPanelRequest &request = m_panel->requests[0];
        QCOMPARE(request.title, title);
        QCOMPARE(request.prompt, prompt);
        QVERIFY(request.choice == choice);
        QCOMPARE(request.allowsMultiple, allowsMultiple);
        QCOMPARE(request.canCreateFolders, canCreateFolders);
    }

    void aCancelledPanelChangesNothing()
    {
        const QSignalSpy jobChanges(m_model.get(), &ConverterViewModel::jobsChanged);
        const QSignalSpy folderChanges(m_model.get(), &ConverterViewModel::destinationChanged);
        m_model->chooseFiles();
        m_model->chooseFolder();
        m_model->chooseDestination();
        QCOMPARE(m_panel->requests.size(), 3);
        QVERIFY(awaitSearches(*m_model->searches()));
        QCOMPARE(jobChanges.size(), 0);
        QCOMPARE(folderChanges.size(), 0);
        QVERIFY(!m_model->destination());
    }

    void chosenFilesAreSortedTogetherBecauseTheyAreAddedAtOnce()
    {
        const FileTree tree;
        const QSignalSpy inserts(m_model->jobModel(), &JobListModel::rowsInserted);
        m_panel->answers = {QList{tree.addFile(u"b.mp4"_s), tree.addFile(u"a.mp4"_s)}};
        m_model->chooseFiles();
        QCOMPARE(names(), (QStringList{u"a.mp4"_s, u"b.mp4"_s}));
        QCOMPARE(inserts.size(), 1);
    }

    void filesOfTheSameNameKeepThePanelsOrder()
    {
        const FileTree tree;
        const QList chosen{tree.addFile(u"z/same.mp4"_s), tree.addFile(u"a/same.mp4"_s),
                           tree.addFile(u"m/same.mp4"_s)};
        m_panel->answers = {chosen};
        m_model->chooseFiles();
        QCOMPARE(sources(), chosen);
    }

    void chosenFilesOfOtherTypesAreLeftOut()
    {
        const FileTree tree;
        m_panel->answers = {QList{tree.addFile(u"a.txt"_s), tree.addFile(u"b.MKV"_s)}};
        m_model->chooseFiles();
        QCOMPARE(names(), QStringList{u"b.MKV"_s});
    }

    void aFileChosenAgainIsNotQueuedAgain()
    {
        const FileTree tree;
        const QUrl clip = tree.addFile(u"clip.mp4"_s);
        m_panel->answers = {QList{clip}, QList{clip}};
        m_model->chooseFiles();
        m_model->chooseFiles();
        QCOMPARE(sources(), QList{clip});
    }

    void severalFoldersAreExpandedAndSortedTogether()
    {
        const FileTree tree;
        tree.addFiles({u"one/clip10.mkv"_s, u"one/deep/clip2.mkv"_s, u"two/clip9.mkv"_s,
                       u"two/letter.txt"_s});
        m_panel->answers = {QList{tree.url(u"two"_s), tree.url(u"one"_s)}};
        m_model->chooseFolder();
        QCOMPARE(names(), (QStringList{u"clip2.mkv"_s, u"clip9.mkv"_s, u"clip10.mkv"_s}));
    }

    void aPanelConfirmedWithoutFilesAddsNothing()
    {
        m_panel->answers = {QList<QUrl>{}, QList<QUrl>{}};
        m_model->chooseFiles();
        m_model->chooseFolder();
        QCOMPARE(sources(), QList<QUrl>{});
    }

    void theChosenFolderBecomesTheDestination()
    {
        const QUrl folder = QUrl::fromLocalFile(u"/out/50% a b"_s);
        const QSignalSpy changes(m_model.get(), &ConverterViewModel::destinationChanged);
        m_panel->answers = {QList{folder}};
        m_model->chooseDestination();
        QVERIFY(m_model->destination() == folder);
        QCOMPARE(m_model->property("hasDestination"), true);
        QCOMPARE(m_model->property("destinationPath").toString(), u"/out/50% a b"_s);
        QCOMPARE(changes.size(), 1);
    }

    void theOutputFolderIsNeitherTestedNorMade()
    {
        const FileTree tree;
        const QUrl absent = tree.url(u"absent"_s);
        m_panel->answers = {QList{absent}};
        m_model->chooseDestination();
        QVERIFY(m_model->destination() == absent);
        QVERIFY(!QFileInfo::exists(absent.toLocalFile()));
    }

    void choosingTheSameFolderAgainKeepsIt()
    {
        const QUrl folder = QUrl::fromLocalFile(u"/out"_s);
        m_panel->answers = {QList{folder}, QList{folder}};
        m_model->chooseDestination();
        m_model->chooseDestination();
        QVERIFY(m_model->destination() == folder);
        QCOMPARE(m_model->jobCount(), 0);
        QVERIFY(!m_model->alertMessage());
    }

    void cancellingKeepsTheEarlierFolder()
    {
        const QUrl folder = QUrl::fromLocalFile(u"/out"_s);
        m_panel->answers = {QList{folder}, std::nullopt};
        m_model->chooseDestination();
        m_model->chooseDestination();
        QVERIFY(m_model->destination() == folder);
    }

    void aPanelConfirmedWithoutAFolderLeavesNone()
    {
        m_panel->answers = {QList{QUrl::fromLocalFile(u"/out"_s)}, QList<QUrl>{}};
        m_model->chooseDestination();
        m_model->chooseDestination();
        QVERIFY(!m_model->destination());
        QCOMPARE(m_model->property("hasDestination"), false);
        QCOMPARE(m_model->property("destinationPath").toString(), QString());
    }

    void theControllersEndWhileAPanelIsOpenIsPutOff()
    {
        for (const Operation choose : operations) {
            OpenedPanel &open = makeModelWithOpenedPanel();
            const std::weak_ptr<ConverterViewModel> weak = m_model;
            bool isAlive = false;
            open.during = [&] {
                m_model.reset();
                isAlive = !weak.expired();
            };
            std::invoke(choose, *m_model);
            QVERIFY(isAlive);
            QVERIFY(weak.expired());
        }
    }

    void noPanelOpensWhileAnotherIsOpen()
    {
        const FileTree tree;
        const QUrl clip = tree.addFile(u"in/clip.mp4"_s);
        for (const Operation first : operations) {
            for (const Operation second : operations) {
                OpenedPanel &open = makeModelWithOpenedPanel();
                open.chosen = {tree.url(u"in"_s)};
                open.during = [&] {
                    std::invoke(second, *m_model);
                };
                std::invoke(first, *m_model);
                QCOMPARE(open.runs, 1);
                // The answer is the first one's alone.
                const bool isForOutput = first == &ConverterViewModel::chooseDestination;
                QCOMPARE(m_model->destination().has_value(), isForOutput);
                QCOMPARE(sources(), isForOutput ? QList<QUrl>{} : QList{clip});

                std::invoke(second, *m_model);
                QCOMPARE(open.runs, 2);
            }
        }
    }

private:
    using Operation = void (ConverterViewModel::*)();

    static constexpr std::array<Operation, 3> operations{&ConverterViewModel::chooseFiles,
                                                         &ConverterViewModel::chooseFolder,
                                                         &ConverterViewModel::chooseDestination};

    OpenedPanel &makeModelWithOpenedPanel()
    {
        auto panel = std::make_unique<OpenedPanel>();
        OpenedPanel &opened = *panel;
        m_model =
            ConverterViewModel::create(std::move(panel), std::make_unique<RecordedFileManager>());
        return opened;
    }

    QList<QUrl> sources() const
    {
        if (!awaitSearches(*m_model->searches()))
            qFatal("The search does not end");
        QList<QUrl> sources;
        for (const ConversionJob &job : m_model->jobs())
            sources << job.source();
        return sources;
    }
    QStringList names() const { return fileNames(sources()); }

    RecordedPanel *m_panel = nullptr;
    std::shared_ptr<ConverterViewModel> m_model;
};

QUORVALE_TEST(OpenPanelTest)
#include "openpanel_test.moc"
