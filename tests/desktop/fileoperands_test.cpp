// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "desktop/fileoperands.h"

#include "model/filepath.h"
#include "support/testclass.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

using namespace quorvale;

class FileOperandsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void namesFilesByWords_data()
    {
        QTest::addColumn<QList<QByteArray>>("words");
        QTest::addColumn<QList<QByteArray>>("paths");
        using Words = QList<QByteArray>;
        QTest::newRow("none") << Words{} << Words{};
        QTest::newRow("absolute") << Words{"/a/b.mp4", "/c"} << Words{"/a/b.mp4", "/c"};
        QTest::newRow("relative") << Words{"b.mp4", "c/d.mov"}
                                  << Words{"/here/now/b.mp4", "/here/now/c/d.mov"};
        QTest::newRow("dots") << Words{".", "./b.mp4", "a/./b.mp4", "/a/./b.mp4"}
                              << Words{"/here/now", "/here/now/b.mp4", "/here/now/a/b.mp4",
                                       "/a/b.mp4"};
        QTest::newRow("above the working folder")
            << Words{"..", ".././../b.mp4", "../../../b.mp4"} << Words{"/here", "/b.mp4", "/b.mp4"};
        QTest::newRow("above what may be a link")
            << Words{"link/../b.mp4", "../link/..", "/link/../b.mp4"}
            << Words{"/here/now/link/../b.mp4", "/here/link/..", "/link/../b.mp4"};
        QTest::newRow("names that look like URLs")
            << Words{"file:///a", "a%20b#c?.mp4", "http://a/b.mp4"}
            << Words{"/here/now/file:/a", "/here/now/a%20b#c?.mp4", "/here/now/http:/a/b.mp4"};
        QTest::newRow("no UTF-8") << Words{"caf\xe9.mp4", "/\xff/\xfe.mp4"}
                                  << Words{"/here/now/caf\xe9.mp4", "/\xff/\xfe.mp4"};
        QTest::newRow("two slashes") << Words{"//a//b.mp4"} << Words{"/a/b.mp4"};
        QTest::newRow("an empty word") << Words{"", "/a"} << Words{"/a"};
        QTest::newRow("options") << Words{"-v", "--help", "/a", "-", "--file=/b"} << Words{"/a"};
        QTest::newRow("behind two hyphens") << Words{"-v", "--", "-b.mp4", "--", "/a"}
                                            << Words{"/here/now/-b.mp4", "/here/now/--", "/a"};
    }
    void namesFilesByWords()
    {
        QFETCH(const QList<QByteArray>, words);
        QList<QByteArray> paths;
        for (const QUrl &file : fileOperands(words, "/here/now")) {
            QVERIFY(file.isLocalFile());
            paths << filePath(file);
        }
        QTEST(paths, "paths");
    }

    void theWorkingFolderMayBeNoText()
    {
        const auto files = fileOperands({"a.mp4"}, "/caf\xe9");
        QCOMPARE(files.size(), 1);
        QCOMPARE(filePath(files.first()), "/caf\xe9/a.mp4");
    }

    void withoutAWorkingFolderOnlyWholePathsCount()
    {
        QTest::ignoreMessage(QtWarningMsg,
                             "quorvale: Left out a.mp4, because the working folder is gone.");
        const auto files = fileOperands({"a.mp4", "/b.mp4"}, {});
        QCOMPARE(files, QList{fileUrl("/b.mp4")});
    }

    void knowsTheWorkingFolder()
    {
        const QString before = QDir::currentPath();
        {
            const QTemporaryDir folder;
            QVERIFY(QDir::setCurrent(folder.path()));
            QCOMPARE(workingFolder(), QFile::encodeName(QDir(folder.path()).canonicalPath()));
        }
        QCOMPARE(workingFolder(), QByteArray()); // it is gone
        QVERIFY(QDir::setCurrent(before));
    }
};

QUORVALE_TEST(FileOperandsTest)
#include "fileoperands_test.moc"
