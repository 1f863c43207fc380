// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "model/filepath.h"
#include "support/testclass.h"

#include <QTest>

using namespace quorvale;
using namespace Qt::StringLiterals;

class FilePathTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyPathSurvivesTheWayThroughAUrl_data()
    {
        QTest::addColumn<QByteArray>("path");
        QByteArray everyByte = "/";
        for (int byte = 1; byte < 256; ++byte)
            everyByte += static_cast<char>(byte);
        QTest::newRow("every byte") << everyByte;
        QTest::newRow("ordinary") << QByteArray("/v/caf\xc3\xa9 #1 50%25?.mp4");
        QTest::newRow("Latin 1") << QByteArray("/v/caf\xe9.mp4");
        QTest::newRow("cut off") << QByteArray("/v/\xf0\x9f\x8e");
        QTest::newRow("surrogates") << QByteArray("/v/\xed\xa0\x80.mp4");
        QTest::newRow("the replacement character itself") << QByteArray("/v/\xef\xbf\xbd.mp4");
        QTest::newRow("both") << QByteArray("/v/\xef\xbf\xbd\xff%ff.mp4");
        QTest::newRow("two slashes") << QByteArray("//v/a.mp4");
        QTest::newRow("the root") << QByteArray("/");
    }
    void everyPathSurvivesTheWayThroughAUrl()
    {
        QFETCH(const QByteArray, path);
        const QUrl url = fileUrl(path);
        QVERIFY(url.isLocalFile());
        QCOMPARE(url.host(), QString());
        QCOMPARE(filePath(url), path);
        // As programs tell each other about files.
        QCOMPARE(filePath(QUrl::fromEncoded(url.toEncoded())), path);
    }

    void aPathThatIsTextMakesTheUrlThatQtMakesOfIt()
    {
        const QString path = u"/v/[1] é #%.mp4"_s;
        QCOMPARE(fileUrl(path.toUtf8()), QUrl::fromLocalFile(path));
    }

    void whatIsNoTextIsShownAsReplacementCharacters()
    {
        QCOMPARE(shownPath("/v/caf\xe9\xff.mp4"), u"/v/caf\uFFFD\uFFFD.mp4"_s);
        QCOMPARE(shownPath("/v/caf\xc3\xa9.mp4"), u"/v/caf\u00e9.mp4"_s);
    }
};

QUORVALE_TEST(FilePathTest)
#include "filepath_test.moc"
