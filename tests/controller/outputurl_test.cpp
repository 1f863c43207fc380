// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "controller/outputurl.h"
#include "support/filetree.h"
#include "support/testclass.h"

#include <QFile>
#include <QTest>

using namespace quorvale;
using namespace quorvale::test;
using namespace Qt::StringLiterals;

class OutputUrlTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isNamedAfterTheSource()
    {
        const FileTree out;
        QCOMPARE(output(out, u"/in/clip.mkv"_s), out.url(u"clip_converted.mp4"_s));
        QCOMPARE(output(out, u"/in/trip.final.mkv"_s), out.url(u"trip.final_converted.mp4"_s));
    }

    void proResGoesIntoMov()
    {
        const FileTree out;
        ConversionSettings settings;
        settings.codec = OutputCodec::proRes422HQ;
        QCOMPARE(outputUrl(QUrl::fromLocalFile(u"/in/clip.mkv"_s), out.root(), settings),
                 out.url(u"clip_converted.mov"_s));
    }

    void skipsNamesThatAreTaken()
    {
        const FileTree out;
        out.addFile(u"clip_converted.mp4"_s);
        QCOMPARE(output(out, u"/in/clip.mkv"_s), out.url(u"clip_converted_2.mp4"_s));
        out.addFile(u"clip_converted_2.mp4"_s);
        QCOMPARE(output(out, u"/in/clip.mkv"_s), out.url(u"clip_converted_3.mp4"_s));
    }

    void fillsAGap()
    {
        const FileTree out;
        out.addFiles({u"clip_converted.mp4"_s, u"clip_converted_3.mp4"_s});
        QCOMPARE(output(out, u"/in/clip.mkv"_s), out.url(u"clip_converted_2.mp4"_s));
    }

    void anotherContainersNameIsNotTaken()
    {
        const FileTree out;
        out.addFile(u"clip_converted.mov"_s);
        QCOMPARE(output(out, u"/in/clip.mkv"_s), out.url(u"clip_converted.mp4"_s));
    }

    void foldersAndLinksThatLeadNowhereAreObjectsToo()
    {
        const FileTree out;
        out.addFolder(u"clip_converted.mp4"_s);
        QVERIFY(QFile::link(u"/no/such/file"_s, out.path(u"clip_converted_2.mp4"_s)));
        QCOMPARE(output(out, u"/in/clip.mkv"_s), out.url(u"clip_converted_3.mp4"_s));
    }

    void overwritingTakesTheFirstName()
    {
        const FileTree out;
        out.addFile(u"clip_converted.mp4"_s);
        ConversionSettings settings;
        settings.overwrite = true;
        QCOMPARE(outputUrl(QUrl::fromLocalFile(u"/in/clip.mkv"_s), out.root(), settings),
                 out.url(u"clip_converted.mp4"_s));
    }

    void theFolderNeedNotExist()
    {
        const FileTree out;
        const QUrl folder = out.url(u"not/there"_s);
        QCOMPARE(outputUrl(QUrl::fromLocalFile(u"/in/clip.mkv"_s), folder, {}),
                 out.url(u"not/there/clip_converted.mp4"_s));
    }

    void aTrailingSlashOfTheFolderDoesNotMatter()
    {
        const FileTree out;
        const QUrl folder = QUrl::fromLocalFile(out.root().toLocalFile() + u'/');
        QCOMPARE(outputUrl(QUrl::fromLocalFile(u"/in/clip.mkv"_s), folder, {}),
                 out.url(u"clip_converted.mp4"_s));
    }

    void theRootIsAFolder()
    {
        const QUrl root = QUrl::fromLocalFile(u"/"_s);
        QCOMPARE(outputUrl(QUrl::fromLocalFile(u"/in/no such clip.mkv"_s), root, {}).toLocalFile(),
                 u"/no such clip_converted.mp4"_s);
    }

    void oddNamesAreKept()
    {
        const FileTree out;
        for (const QString &base : {u"50% #1?"_s, u"%20"_s, u"-dash"_s, u"e\u0301"_s, u"\u05d0"_s,
                                    u"a\nb"_s, u"back\\slash"_s})
            QCOMPARE(output(out, u"/in/"_s + base + u".mkv"_s).toLocalFile(),
                     out.path(base + u"_converted.mp4"_s));
    }

private:
    static QUrl output(const FileTree &folder, const QString &source)
    {
        return outputUrl(QUrl::fromLocalFile(source), folder.root(), {});
    }
};

QUORVALE_TEST(OutputUrlTest)
#include "outputurl_test.moc"
