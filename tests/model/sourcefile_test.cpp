// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "model/sourcefile.h"

#include "model/filepath.h"
#include "support/testclass.h"

#include <QTest>

using namespace quorvale;
using namespace Qt::StringLiterals;

class SourceFileTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aUrlStaysAsItIsGiven_data()
    {
        QTest::addColumn<QByteArray>("url");
        QTest::addColumn<QByteArray>("path");
        QTest::newRow("ordinary") << QByteArray("file:///v/a%20b.mp4") << QByteArray("/v/a b.mp4");
        QTest::newRow("dots") << QByteArray("file:///v/w/../a.mp4") << QByteArray("/v/w/../a.mp4");
        QTest::newRow("no text") << QByteArray("file:///v/%E8%25.mp4")
                                 << QByteArray("/v/\xe8%.mp4");
        // The path alone would make another URL of these.
        QTest::newRow("encoded needlessly")
            << QByteArray("file:///v/%28%5B1%5D%29.mp4") << QByteArray("/v/([1]).mp4");
        QTest::newRow("query") << QByteArray("file:///v/a.mp4?b") << QByteArray("/v/a.mp4");
        QTest::newRow("fragment") << QByteArray("file:///v/a.mp4#b") << QByteArray("/v/a.mp4");
        QTest::newRow("host") << QByteArray("file://server/v/a.mp4") << QByteArray("/v/a.mp4");
        QTest::newRow("one slash") << QByteArray("file:/v/a.mp4") << QByteArray("/v/a.mp4");
    }
    void aUrlStaysAsItIsGiven()
    {
        QFETCH(const QByteArray, url);
        QFETCH(const QByteArray, path);
        const QUrl given = QUrl::fromEncoded(url);
        const SourceFile file(given);
        QCOMPARE(file.path(), path);
        QCOMPARE(file.url(), given);
        QCOMPARE(file.url().toEncoded(), given.toEncoded());
    }

    void aPathMakesItsUrl()
    {
        for (const char *path : {"/v/a b.mp4", "/v/caf\xe9.mp4", "//v/50%25 #1?.mp4"}) {
            const SourceFile file((QByteArray(path)));
            QCOMPARE(file.path(), QByteArray(path));
            QCOMPARE(file.url(), fileUrl(path));
            QCOMPARE(file, SourceFile(fileUrl(path)));
        }
    }

    void anotherUrlIsAnotherFile()
    {
        const SourceFile file(QUrl(u"file:///v/a.mp4"_s));
        QVERIFY(file != SourceFile(QUrl(u"file:///v/b.mp4"_s)));
        QVERIFY(file != SourceFile(QUrl(u"file:///v/a.mp4?b"_s)));
    }
};

QUORVALE_TEST(SourceFileTest)
#include "sourcefile_test.moc"
