// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "controller/package.h"
#include "controller/videofinder.h"
#include "support/filetree.h"
#include "support/testclass.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <unistd.h>

using namespace quorvale;
using namespace quorvale::test;
using namespace Qt::StringLiterals;

namespace {

QList<QUrl> videosAt(const QList<QUrl> &urls)
{
    QList<QUrl> videos;
    for (const SourceFile &file : findVideos(urls))
        videos << file.url();
    return videos;
}

// The superuser may read everything, so what it does here it does as somebody else.
template <typename Action>
auto asOrdinaryUser(const Action &action)
{
    constexpr uid_t nobody = 65534;
    const bool isSuperuser = ::geteuid() == 0;
    if (isSuperuser && ::seteuid(nobody) != 0)
        qFatal("Cannot become an ordinary user");
    const auto result = action();
    if (isSuperuser && ::seteuid(0) != 0)
        qFatal("Cannot become the superuser again");
    return result;
}

} // namespace

class VideoFinderTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void acceptsByExtensionWhateverItsCase()
    {
        const FileTree tree;
        tree.addFiles({u"a.MOV"_s, u"b.mp4"_s, u"c.txt"_s, u"clip.M2TS"_s, u"clip.av1"_s,
                       u"video.MP4.bak"_s, u"mp4"_s, u"noextension"_s});
        QCOMPARE(fileNames(videosAt({tree.root()})),
                 (QStringList{u"a.MOV"_s, u"b.mp4"_s, u"clip.M2TS"_s}));
    }

    void passesOverHiddenEntries()
    {
        const FileTree tree;
        tree.addFiles(
            {u".hidden.mp4"_s, u".git/clip.mp4"_s, u"seen/.deeper/clip.mp4"_s, u"seen/clip.mp4"_s});
        QCOMPARE(videosAt({tree.root()}), QList<QUrl>{tree.url(u"seen/clip.mp4"_s)});
    }

    void aHiddenFolderThatIsGivenIsEntered()
    {
        const FileTree tree;
        tree.addFile(u".hidden/clip.mp4"_s);
        QCOMPARE(videosAt({tree.url(u".hidden"_s)}), QList<QUrl>{tree.url(u".hidden/clip.mp4"_s)});
    }

    void aHiddenFileThatIsGivenCounts()
    {
        const FileTree tree;
        const QUrl file = tree.addFile(u".hidden.mp4"_s);
        QCOMPARE(videosAt({file}), QList<QUrl>{file});
        // Its name is all dot and letters: there is no extension.
        QVERIFY(videosAt({tree.addFile(u".mp4"_s)}).isEmpty());
    }

    void doesNotEnterPackages()
    {
        const FileTree tree;
        tree.addFiles({u"Editor.app/Contents/intro.mp4"_s,
                       u"Holiday.PhotosLibrary/originals/clip.mov"_s,
                       u"notes.appendix/clip.mp4"_s});
        for (const QString &extension : {u"migratedphotolibrary"_s, u"fcarch"_s, u"lrlibrary"_s,
                                         u"cocatalog"_s, u"screenflow"_s, u"cmproj"_s, u"EyeTV"_s})
            tree.addFile(u"films.%1/clip.mp4"_s.arg(extension));
        QCOMPARE(videosAt({tree.root()}), QList<QUrl>{tree.url(u"notes.appendix/clip.mp4"_s)});
    }

    void aPackageThatIsGivenIsEntered()
    {
        const FileTree tree;
        tree.addFile(u"Editor.app/intro.mp4"_s);
        QCOMPARE(videosAt({tree.url(u"Editor.app"_s)}),
                 QList<QUrl>{tree.url(u"Editor.app/intro.mp4"_s)});
    }

    void aFolderNamedLikeAClipIsAnEntryAndEntered()
    {
        const FileTree tree;
        tree.addFile(u"takes.mp4/one.mov"_s);
        QCOMPARE(videosAt({tree.root()}),
                 (QList<QUrl>{tree.url(u"takes.mp4"_s), tree.url(u"takes.mp4/one.mov"_s)}));
    }

    void aFolderNamedLikeAClipThatIsGivenIsOnlyEntered()
    {
        const FileTree tree;
        tree.addFile(u"takes.mp4/one.mov"_s);
        QCOMPARE(videosAt({tree.url(u"takes.mp4"_s)}),
                 QList<QUrl>{tree.url(u"takes.mp4/one.mov"_s)});
    }

    void doesNotFollowLinksToFolders()
    {
        const FileTree tree;
        const FileTree other;
        other.addFile(u"clip.mp4"_s);
        tree.addFile(u"a/own.mp4"_s);
        QVERIFY(QFile::link(other.root().toLocalFile(), tree.path(u"elsewhere"_s)));
        QVERIFY(QFile::link(tree.root().toLocalFile(), tree.path(u"a/loop"_s)));
        QCOMPARE(videosAt({tree.root()}), QList<QUrl>{tree.url(u"a/own.mp4"_s)});
    }

    void followsALinkThatIsGiven()
    {
        const FileTree tree;
        tree.addFile(u"real/clip.mp4"_s);
        QVERIFY(QFile::link(tree.path(u"real"_s), tree.path(u"link"_s)));
        QCOMPARE(videosAt({tree.url(u"link"_s)}), QList<QUrl>{tree.url(u"link/clip.mp4"_s)});
    }

    void aLinkToAFileCounts()
    {
        const FileTree tree;
        tree.addFile(u"real.txt"_s);
        QVERIFY(QFile::link(tree.path(u"real.txt"_s), tree.path(u"link.mp4"_s)));
        QVERIFY(QFile::link(u"/no/such/file"_s, tree.path(u"nowhere.mp4"_s)));
        QCOMPARE(fileNames(videosAt({tree.root()})),
                 (QStringList{u"link.mp4"_s, u"nowhere.mp4"_s}));
    }

    void anUnreadableFolderContributesNothingAndStopsNothing()
    {
        const FileTree tree;
        tree.addFiles({u"a/one.mp4"_s, u"b/two.mp4"_s, u"c/three.mp4"_s});
        const QString locked = tree.path(u"b"_s);
        QVERIFY(QFile::setPermissions(locked, QFile::Permissions()));
        const QStringList found =
            fileNames(asOrdinaryUser([&] { return videosAt({tree.root()}); }));
        QVERIFY(
            QFile::setPermissions(locked, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
        QCOMPARE(found, (QStringList{u"one.mp4"_s, u"three.mp4"_s}));
    }

    void comesFolderByFolderInTheOrderOfTheNames()
    {
        const FileTree tree;
        tree.addFiles({u"z.mp4"_s, u"b/2.mp4"_s, u"b/1.mp4"_s, u"a.mp4"_s, u"B.mp4"_s,
                       u"b/c/3.mp4"_s, u"b/b.mp4"_s});
        const QList<QUrl> expected{tree.url(u"B.mp4"_s),   tree.url(u"a.mp4"_s),
                                   tree.url(u"b/1.mp4"_s), tree.url(u"b/2.mp4"_s),
                                   tree.url(u"b/b.mp4"_s), tree.url(u"b/c/3.mp4"_s),
                                   tree.url(u"z.mp4"_s)};
        QCOMPARE(videosAt({tree.root()}), expected);
    }

    void keepsTheOrderOfWhatIsGiven()
    {
        const FileTree tree;
        const QUrl z = tree.addFile(u"z.mp4"_s);
        const QUrl inFolder = tree.addFile(u"folder/m.mp4"_s);
        const QUrl a = tree.addFile(u"a.mp4"_s);
        QCOMPARE(videosAt({z, tree.url(u"folder"_s), a, z}), (QList<QUrl>{z, inFolder, a, z}));
    }

    void aPathWhereNothingIsCounts()
    {
        const QUrl missing = QUrl::fromLocalFile(u"/no/such/clip.mp4"_s);
        QCOMPARE(videosAt({missing}), QList<QUrl>{missing});
        QVERIFY(videosAt({QUrl::fromLocalFile(u"/no/such/folder"_s)}).isEmpty());
    }

    void urlsThatAreNotOfLocalFilesAreLeftOut()
    {
        QVERIFY(videosAt({QUrl(u"https://example.org/clip.mp4"_s), QUrl(u"clip.mp4"_s), QUrl(),
                          QUrl(u"file://nas.example/clip.mp4"_s)})
                    .isEmpty());
    }

    void localUrlsWithAHostAreTakenWithoutIt()
    {
        const FileTree tree;
        const QUrl file = tree.addFile(u"clip.mp4"_s);
        QUrl withHost = file;
        withHost.setHost(u"localhost"_s);
        QUrl folder = tree.root();
        folder.setHost(u"localhost"_s);
        QCOMPARE(videosAt({withHost, folder}), (QList<QUrl>{file, file}));
    }

    void oddNamesComeBackAsTheyAre()
    {
        const FileTree tree;
        const QStringList names{u" leading space.mp4"_s, u"#1.mp4"_s,         u"%20.mp4"_s,
                                u"-dash.mp4"_s,          u"50% ?.mp4"_s,      u"back\\slash.mp4"_s,
                                u"e\u0301.mp4"_s,        u"line\nfeed.mp4"_s, u"\u00e9.mp4"_s,
                                u"\u05d0\u05d1.mp4"_s,   u"\U0001f3ac.mp4"_s};
        tree.addFiles(names);
        QStringList found;
        for (const QUrl &url : videosAt({tree.root()})) {
            QVERIFY(QFile::exists(url.toLocalFile()));
            found << url.toLocalFile().section(u'/', -1);
        }
        QCOMPARE(found, names);
    }

    void aDeepTreeIsReadToItsEnd()
    {
        const FileTree tree;
        QString deep;
        for (int i = 0; i < 200; ++i)
            deep += u"folder/"_s;
        tree.addFile(deep + u"clip.mp4"_s);
        QCOMPARE(fileNames(videosAt({tree.root()})), QStringList{u"clip.mp4"_s});
    }
};

QUORVALE_TEST(VideoFinderTest)
#include "videofinder_test.moc"
