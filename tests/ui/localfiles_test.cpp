// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "localfiles.h"
#include "support/testclass.h"

#include <QTest>

using namespace quorvale;
using namespace Qt::StringLiterals;

class LocalFilesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tellsWhetherAFileIsAmongThem_data()
    {
        QTest::addColumn<QList<QUrl>>("urls");
        QTest::addColumn<bool>("isAmong");
        const QUrl file(u"file:///in/a.mp4"_s);
        const QUrl web(u"https://example.org/a.mp4"_s);
        QTest::newRow("none") << QList<QUrl>() << false;
        QTest::newRow("file") << QList{file} << true;
        QTest::newRow("folder") << QList{QUrl(u"file:///in/"_s)} << true;
        QTest::newRow("encoded") << QList{QUrl(u"file:///in/50%25%20off.mp4"_s)} << true;
        QTest::newRow("on this machine by name")
            << QList{QUrl(u"file://localhost/in/a.mp4"_s)} << true;
        QTest::newRow("on another machine")
            << QList{QUrl(u"file://nas.example/in/a.mp4"_s)} << false;
        QTest::newRow("web") << QList{web} << false;
        QTest::newRow("web, then file") << QList{web, file} << true;
        QTest::newRow("file, then web") << QList{file, web} << true;
        QTest::newRow("other schemes")
            << QList{QUrl(u"sftp://host/a.mp4"_s), QUrl(u"trash:///a.mp4"_s)} << false;
        QTest::newRow("path without scheme") << QList{QUrl(u"/in/a.mp4"_s)} << false;
        QTest::newRow("empty") << QList{QUrl()} << false;
    }
    void tellsWhetherAFileIsAmongThem()
    {
        QFETCH(const QList<QUrl>, urls);
        QTEST(LocalFiles::areAmong(urls), "isAmong");
    }
};

QUORVALE_TEST(LocalFilesTest)
#include "localfiles_test.moc"
