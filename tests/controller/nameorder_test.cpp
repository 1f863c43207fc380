// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "controller/nameorder.h"
#include "support/filetree.h"
#include "support/testclass.h"

#include <QDir>
#include <QTest>

using namespace quorvale;
using namespace quorvale::test;
using namespace Qt::StringLiterals;

// Run once for each of several locales; see the test list. LC_ALL tells which one.

namespace {

QList<QUrl> urlsOf(const QList<SourceFile> &files)
{
    QList<QUrl> urls;
    for (const SourceFile &file : files)
        urls << file.url();
    return urls;
}

QStringList sorted(const QStringList &names)
{
    QList<SourceFile> files;
    for (const QString &name : names)
        files.emplaceBack(QUrl::fromLocalFile(u"/videos/"_s + name));
    sortByName(files);
    return fileNames(urlsOf(files));
}

} // namespace

class NameOrderTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void digitRunsCompareByValue()
    {
        QCOMPARE(sorted({u"clip10.mkv"_s, u"clip9.mkv"_s, u"clip100.mkv"_s, u"clip1.mkv"_s}),
                 (QStringList{u"clip1.mkv"_s, u"clip9.mkv"_s, u"clip10.mkv"_s, u"clip100.mkv"_s}));
        QCOMPARE(sorted({u"2 b 10.mp4"_s, u"2 b 9.mp4"_s, u"10 a.mp4"_s}),
                 (QStringList{u"2 b 9.mp4"_s, u"2 b 10.mp4"_s, u"10 a.mp4"_s}));
    }

    void longDigitRunsCompareByValue()
    {
        const QString small = u"20261121235959000001.mp4"_s;
        const QString large = u"100000000000000000000.mp4"_s;
        QCOMPARE(sorted({large, small}), (QStringList{small, large}));
    }

    void caseDoesNotMatter()
    {
        QCOMPARE(sorted({u"b.mp4"_s, u"C.mp4"_s, u"a.MOV"_s, u"A2.mp4"_s}),
                 (QStringList{u"a.MOV"_s, u"A2.mp4"_s, u"b.mp4"_s, u"C.mp4"_s}));
    }

    void equalNamesKeepTheirOrder()
    {
        QList<SourceFile> files;
        for (const QByteArray path : {"/3/B.mp4", "/1/b.mp4", "/2/B.mp4", "/9/a.mp4", "/0/b.mp4"})
            files.emplaceBack(path);
        sortByName(files);
        QStringList paths;
        for (const SourceFile &file : files)
            paths << QString::fromUtf8(file.path());
        QCOMPARE(paths, (QStringList{u"/9/a.mp4"_s, u"/3/B.mp4"_s, u"/1/b.mp4"_s, u"/2/B.mp4"_s,
                                     u"/0/b.mp4"_s}));
    }

    void manyFilesSortToo()
    {
        // Each name in two spellings that are equal, in folders that number the files.
        constexpr int count = 5000;
        QList<SourceFile> files;
        for (int i = 0; i < count; ++i) {
            const char *name = i % 2 == 0 ? "cam" : "CAM";
            files.emplaceBack("/" + QByteArray::number(i) + '/' + name
                              + QByteArray::number(i * 7919 % (count / 2)) + ".mp4");
        }
        sortByName(files);
        int previousClip = -1;
        int previousFolder = -1;
        for (const SourceFile &file : std::as_const(files)) {
            const QByteArrayList parts = file.path().split('/');
            const int folder = parts[1].toInt();
            const int clip = folder * 7919 % (count / 2);
            QVERIFY2(clip > previousClip || (clip == previousClip && folder > previousFolder),
                     file.path().constData());
            previousClip = clip;
            previousFolder = folder;
        }
        QCOMPARE(previousClip, count / 2 - 1);
    }

    void leadingZerosDoNotMatter()
    {
        QCOMPARE(sorted({u"clip010.mp4"_s, u"clip9.mp4"_s, u"clip10.mp4"_s, u"clip08.mp4"_s}),
                 (QStringList{u"clip08.mp4"_s, u"clip9.mp4"_s, u"clip010.mp4"_s, u"clip10.mp4"_s}));
    }

    void onlyTheFileNameCounts()
    {
        QList<SourceFile> files{QUrl::fromLocalFile(u"/a/z.mp4"_s),
                                QUrl::fromLocalFile(u"/z/a.mp4"_s)};
        sortByName(files);
        QCOMPARE(fileNames(urlsOf(files)), (QStringList{u"a.mp4"_s, u"z.mp4"_s}));
    }

    void lettersFollowTheUsersLanguage()
    {
        // In Swedish ä is a letter behind z, elsewhere it is a kind of a.
        const QStringList names{u"z.mp4"_s, u"\u00e4.mp4"_s, u"b.mp4"_s};
        const bool isSwedish = qgetenv("LC_ALL").startsWith("sv");
        QCOMPARE(sorted(names), isSwedish ? (QStringList{u"b.mp4"_s, u"z.mp4"_s, u"\u00e4.mp4"_s})
                                          : (QStringList{u"\u00e4.mp4"_s, u"b.mp4"_s, u"z.mp4"_s}));
    }

    void composedAndDecomposedLettersAreEqual()
    {
        const QStringList names{u"e\u0301b.mp4"_s, u"\u00e9a.mp4"_s};
        QCOMPARE(sorted(names), (QStringList{u"\u00e9a.mp4"_s, u"e\u0301b.mp4"_s}));
    }

    void oddNamesSortToo()
    {
        const QStringList names{u"50%25.mp4"_s, u"#.mp4"_s, u"?.mp4"_s, u"a\nb.mp4"_s};
        QStringList same = sorted(names);
        same.sort();
        QCOMPARE(same, (QStringList{u"#.mp4"_s, u"50%25.mp4"_s, u"?.mp4"_s, u"a\nb.mp4"_s}));
        QCOMPARE(sorted({}), QStringList());
    }
};

QUORVALE_TEST(NameOrderTest)
#include "nameorder_test.moc"
