// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "controller/converterviewmodel.h"
#include "support/filetree.h"
#include "support/patience.h"
#include "support/recordedfilemanager.h"
#include "support/recordedpanel.h"
#include "support/testclass.h"

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
        auto fileManager = std::make_unique<RecordedFileManager>();
        m_fileManager = fileManager.get();
        m_model = ConverterViewModel::create(std::move(panel), std::move(fileManager));
    }

    void droppedFilesAreAddedInTheirOrderOnceTheDropIsOver()
    {
        const FileTree tree;
        const QUrl b = tree.addFile(u"b.mp4"_s);
        const QUrl a = tree.addFile(u"a.mp4"_s);
        QVERIFY(m_model->handleDrop({b, a}));
        QVERIFY(m_model->jobs().isEmpty());
        QTRY_COMPARE_WITH_TIMEOUT(m_model->jobs().size(), 2, patience);
        QCOMPARE(m_model->jobs()[0].source(), b);
        QCOMPARE(m_model->jobs()[1].source(), a);
    }

    void theSameFileDroppedTwiceIsOneJob()
    {
        const FileTree tree;
        const QUrl clip = tree.addFile(u"clip.mp4"_s);
        const QUrl last = tree.addFile(u"last.mp4"_s);
        m_model->handleDrop({clip, clip, last});
        QTRY_COMPARE_WITH_TIMEOUT(m_model->jobs().size(), 2, patience);
    }

    void aDroppedFolderIsAddedInNameOrder()
    {
        const FileTree tree;
        tree.addFiles({u"clip10.mkv"_s, u"clip9.mkv"_s});
        m_model->handleDrop({tree.root()});
        QTRY_COMPARE_WITH_TIMEOUT(m_model->jobs().size(), 2, patience);
        QCOMPARE(m_model->jobs()[0].source(), tree.url(u"clip9.mkv"_s));
    }

    void whatIsNoFileAddsNothingAndTheDropSucceeds_data()
    {
        QTest::addColumn<QList<QUrl>>("urls");
        QTest::newRow("nothing") << QList<QUrl>{};
        QTest::newRow("a web link") << QList{QUrl(u"https://example.org/clip.mp4"_s)};
        QTest::newRow("a text clipping") << QList{QUrl(u"clip.mp4"_s)};
        QTest::newRow("an empty URL") << QList{QUrl()};
        QTest::newRow("undecodable")
            << QList{QUrl(u"file:///v/%zz.mp4"_s, QUrl::StrictMode), QUrl(u"file://[/clip.mp4"_s)};
    }
    void whatIsNoFileAddsNothingAndTheDropSucceeds()
    {
        QFETCH(const QList<QUrl>, urls);
        QVERIFY(m_model->handleDrop(urls));
        QCOMPARE(namesOf(urls), QStringList{});
    }

    void filesAmongOtherThingsAreAdded()
    {
        const FileTree tree;
        QCOMPARE(namesOf({QUrl(u"https://example.org/web.mp4"_s), tree.addFile(u"a.mp4"_s), QUrl(),
                          tree.addFile(u"letter.txt"_s), tree.addFile(u"b.mp4"_s)}),
                 (QStringList{u"a.mp4"_s, u"b.mp4"_s}));
    }

    void everyFileOfADropIsAddedByItself()
    {
        constexpr int count = 10'000;
        QList<QUrl> clips;
        for (int i = count; i > 0; --i)
            clips << QUrl::fromLocalFile(u"/videos/%1.mp4"_s.arg(i));
        const QSignalSpy inserts(m_model->jobModel(), &JobListModel::rowsInserted);
        const QSignalSpy resets(m_model->jobModel(), &JobListModel::modelReset);
        const QSignalSpy moves(m_model->jobModel(), &JobListModel::rowsMoved);
        const QSignalSpy removals(m_model->jobModel(), &JobListModel::rowsRemoved);
        const QSignalSpy rowChanges(m_model->jobModel(), &JobListModel::dataChanged);
        m_model->handleDrop(clips);
        QTRY_COMPARE_WITH_TIMEOUT(m_model->jobCount(), count, patience);
        for (int i = 0; i < count; ++i)
            QCOMPARE(m_model->jobs()[i].source(), clips[i]);
        QCOMPARE(inserts.size(), count);
        for (int i = 0; i < count; ++i) {
            QCOMPARE(inserts[i][1], i);
            QCOMPARE(inserts[i][2], i);
        }
        QCOMPARE(resets.size() + moves.size() + removals.size() + rowChanges.size(), 0);
    }

    void severalDroppedFoldersAreEachInNameOrder()
    {
        const FileTree tree;
        tree.addFiles({u"one/d.mp4"_s, u"one/b.mp4"_s, u"two/c.mp4"_s, u"two/a.mp4"_s});
        QCOMPARE(namesOf({tree.url(u"one"_s), tree.url(u"two"_s)}),
                 (QStringList{u"b.mp4"_s, u"d.mp4"_s, u"a.mp4"_s, u"c.mp4"_s}));
    }

    void aFileDroppedWithItsFolderIsOneJob()
    {
        const FileTree tree;
        const QUrl clip = tree.addFile(u"clip.mp4"_s);
        QCOMPARE(namesOf({tree.root(), clip}), QStringList{u"clip.mp4"_s});
    }

    void aDropDuringADropComesBehindIt()
    {
        const FileTree tree;
        m_model->handleDrop({tree.addFile(u"b.mp4"_s)});
        QCOMPARE(namesOf({tree.addFile(u"a.mp4"_s)}), (QStringList{u"b.mp4"_s, u"a.mp4"_s}));
    }

    void aFileIsOneJobWithOrWithoutItsHost()
    {
        const FileTree tree;
        const QUrl clip = tree.addFile(u"clip.mp4"_s);
        QUrl withHost = clip;
        withHost.setHost(u"localhost"_s);
        QUrl elsewhere = clip;
        elsewhere.setHost(u"nas.example"_s);
        QCOMPARE(namesOf({withHost, clip, withHost, elsewhere}), QStringList{u"clip.mp4"_s});
    }

    void percentSignsQuestionMarksAndHashesSurvive()
    {
        const FileTree tree;
        const QUrl odd = tree.addFile(u"50% #1? %20.mp4"_s);
        // As it stands in the text of a drag.
        m_model->handleDrop({QUrl::fromEncoded(odd.toEncoded())});
        QTRY_COMPARE_WITH_TIMEOUT(m_model->jobs().size(), 1, patience);
        QCOMPARE(m_model->jobs()[0].source().toLocalFile(), tree.path(u"50% #1? %20.mp4"_s));
    }

    void aDropThatArrivesAfterTheControllersEndIsLost()
    {
        const std::weak_ptr<ConverterViewModel> weak = m_model;
        int changes = 0;
        connect(m_model.get(), &ConverterViewModel::jobsChanged, this, [&] { ++changes; });
        m_model->handleDrop({QUrl::fromLocalFile(u"/videos/clip.mp4"_s)});
        m_model.reset();
        QVERIFY2(weak.expired(), "A drop keeps the controller alive");
        QCoreApplication::processEvents();
        QCOMPARE(changes, 0);
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

    void revealsTheOutputFolder()
    {
        const QUrl folder = QUrl::fromLocalFile(u"/out/50% a b"_s);
        m_panel->answers = {QList{folder}};
        m_model->chooseDestination();
        m_model->revealDestination();
        QCOMPARE(m_fileManager->revealed, QList{folder});
    }

    void revealsNothingWithoutAnOutputFolder()
    {
        m_model->revealDestination();
        QCOMPARE(m_fileManager->revealed, QList<QUrl>{});
    }

private:
    // What a whole drop adds, which is told by a last file behind it.
    QStringList namesOf(const QList<QUrl> &drop)
    {
        const QUrl last = QUrl::fromLocalFile(u"/last of the drop.mp4"_s);
        m_model->handleDrop(drop + QList{last});
        const auto isOver = [&] {
            return m_model->jobCount() > 0 && m_model->jobs().last().source() == last;
        };
        if (!QTest::qWaitFor(isOver))
            qWarning("The drop is not over");
        QStringList names;
        for (const ConversionJob &job : m_model->jobs())
            names << job.source().fileName();
        names.removeLast();
        return names;
    }

    RecordedPanel *m_panel = nullptr;
    RecordedFileManager *m_fileManager = nullptr;
    std::shared_ptr<ConverterViewModel> m_model;
};

QUORVALE_TEST(FileIntakeTest)
#include "fileintake_test.moc"
