// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "controller/converterviewmodel.h"
#include "support/filetree.h"
#include "support/recordedfilemanager.h"
#include "support/recordedpanel.h"

#include <QSignalSpy>
#include <QTest>

using namespace quorvale;
using namespace quorvale::test;
using namespace Qt::StringLiterals;

class FileIntakeTest : public QObject
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

    void droppedFilesAreAddedInTheirOrderOnceTheDropIsOver()
    {
        const FileTree tree;
        const QUrl b = tree.addFile(u"b.mp4"_s);
        const QUrl a = tree.addFile(u"a.mp4"_s);
        QVERIFY(m_model->handleDrop({b, a}));
        QVERIFY(m_model->jobs().isEmpty());
        QTRY_COMPARE(m_model->jobs().size(), 2);
        QCOMPARE(m_model->jobs()[0].source(), b);
        QCOMPARE(m_model->jobs()[1].source(), a);
    }

    void theSameFileDroppedTwiceIsOneJob()
    {
        const FileTree tree;
        const QUrl clip = tree.addFile(u"clip.mp4"_s);
        const QUrl last = tree.addFile(u"last.mp4"_s);
        m_model->handleDrop({clip, clip, last});
        QTRY_COMPARE(m_model->jobs().size(), 2);
    }

    void aDroppedFolderIsAddedInNameOrder()
    {
        const FileTree tree;
        tree.addFiles({u"clip10.mkv"_s, u"clip9.mkv"_s});
        m_model->handleDrop({tree.root()});
        QTRY_COMPARE(m_model->jobs().size(), 2);
        QCOMPARE(m_model->jobs()[0].source(), tree.url(u"clip9.mkv"_s));
    }

    void aDropWithoutFilesAddsNothingAndSucceeds()
    {
        const FileTree tree;
        QVERIFY(m_model->handleDrop({}));
        QVERIFY(m_model->handleDrop(
            {QUrl(u"https://example.org/clip.mp4"_s), QUrl(), QUrl(u"clip.mp4"_s)}));
        m_model->handleDrop({tree.addFile(u"last.mp4"_s)});
        QTRY_COMPARE(m_model->jobs().size(), 1);
    }

    void percentSignsQuestionMarksAndHashesSurvive()
    {
        const FileTree tree;
        const QUrl odd = tree.addFile(u"50% #1? %20.mp4"_s);
        // As it stands in the text of a drag.
        m_model->handleDrop({QUrl::fromEncoded(odd.toEncoded())});
        QTRY_COMPARE(m_model->jobs().size(), 1);
        QCOMPARE(m_model->jobs()[0].source().toLocalFile(), tree.path(u"50% #1? %20.mp4"_s));
    }

    void aDropThatArrivesAfterTheControllersEndIsLost()
    {
        m_model->handleDrop({QUrl::fromLocalFile(u"/videos/clip.mp4"_s)});
        m_model.reset();
        QCoreApplication::processEvents();
    }

    void asksForTheOutputFolder()
    {
        m_model->chooseDestination();
        QCOMPARE(m_panel->requests.size(), 1);
        QCOMPARE(m_panel->requests[0].title, u"Choose output folder"_s);
        QCOMPARE(m_panel->requests[0].prompt, u"Choose"_s);
        QVERIFY(m_panel->requests[0].choice == OpenPanelRequest::Choice::folders);
    }

    void theChosenFolderBecomesTheDestination()
    {
        const QUrl folder = QUrl::fromLocalFile(u"/out/a b"_s);
        const QSignalSpy changes(m_model.get(), &ConverterViewModel::destinationChanged);
        m_panel->answers = {QList<QUrl>{folder}, QList<QUrl>{folder}};
        m_model->chooseDestination();
        QVERIFY(m_model->destination() == folder);
        m_model->chooseDestination();
        QVERIFY(m_model->destination() == folder);
        QCOMPARE(m_model->property("destinationPath").toString(), u"/out/a b"_s);
        QCOMPARE(changes.size(), 2);
    }

    void cancellingThePanelKeepsTheEarlierFolder()
    {
        const QUrl folder = QUrl::fromLocalFile(u"/out"_s);
        m_panel->answers = {QList<QUrl>{folder}, std::nullopt};
        m_model->chooseDestination();
        m_model->chooseDestination();
        QVERIFY(m_model->destination() == folder);
    }

    void aPanelThatReportsNoFolderClearsTheDestination()
    {
        m_panel->answers = {QList<QUrl>{QUrl::fromLocalFile(u"/out"_s)}, QList<QUrl>{}};
        m_model->chooseDestination();
        m_model->chooseDestination();
        QVERIFY(!m_model->destination());
    }

    void theDropTargetsStateIsTheWindowsToWrite()
    {
        const QSignalSpy changes(m_model.get(), &ConverterViewModel::isDropTargetedChanged);
        m_model->setDropTargeted(true);
        m_model->handleDrop({});
        QVERIFY(m_model->isDropTargeted());
        m_model->setDropTargeted(false);
        QVERIFY(!m_model->isDropTargeted());
        QCOMPARE(changes.size(), 2);
    }

    void choosingACodecAdaptsTheSettings()
    {
        const QSignalSpy changes(m_model.get(), &ConverterViewModel::settingsChanged);
        m_model->chooseCodec(4);
        QCOMPARE(m_model->settings().codec, OutputCodec::proRes4444);
        QCOMPARE(m_model->settings().audio, AudioMode::pcm);
        QCOMPARE(changes.size(), 1);
    }

private:
    RecordedPanel *m_panel = nullptr;
    std::shared_ptr<ConverterViewModel> m_model;
};

QTEST_GUILESS_MAIN(FileIntakeTest)
#include "fileintake_test.moc"
