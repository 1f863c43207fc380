// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "controller/localfile.h"
#include "support/testclass.h"

#include <QSysInfo>
#include <QTest>

using namespace quorvale;
using namespace Qt::StringLiterals;

class LocalFileTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tellsLocalFilesFromOthers_data()
    {
        QTest::addColumn<QByteArray>("url");
        QTest::addColumn<QByteArray>("local"); // empty for none
        const QByteArray machine = QSysInfo::machineHostName().toUtf8();
        const QByteArray plain = "file:///v/a%20%E9.mp4";
        QTest::newRow("no host") << plain << plain;
        QTest::newRow("localhost") << QByteArray("file://localhost/v/a%20%E9.mp4") << plain;
        QTest::newRow("LocalHost") << QByteArray("file://LocalHost/v/a%20%E9.mp4") << plain;
        QTest::newRow("this machine") << "file://" + machine + "/v/a%20%E9.mp4" << plain;
        QTest::newRow("this machine, shouted")
            << "file://" + machine.toUpper() + "/v/a%20%E9.mp4" << plain;
        QTest::newRow("another machine")
            << QByteArray("file://nas.example/v/a.mp4") << QByteArray();
        QTest::newRow("a machine named alike") << "file://" + machine + "x/v/a.mp4" << QByteArray();
        QTest::newRow("localhost's double slash")
            << QByteArray("file://localhost//v/a.mp4") << QByteArray("file:////v/a.mp4");
        QTest::newRow("another scheme") << QByteArray("sftp://localhost/v/a.mp4") << QByteArray();
        QTest::newRow("no scheme") << QByteArray("/v/a.mp4") << QByteArray();
        QTest::newRow("invalid") << QByteArray("file://[/a.mp4") << QByteArray();
        QTest::newRow("a path that ends early")
            << QByteArray("file:///v/a.txt%00.mp4") << QByteArray();
        QTest::newRow("empty") << QByteArray() << QByteArray();
    }
    void tellsLocalFilesFromOthers()
    {
        QFETCH(const QByteArray, url);
        const auto local = localFile(QUrl::fromEncoded(url));
        QTEST(local ? local->toEncoded() : QByteArray(), "local");
    }
};

QUORVALE_TEST(LocalFileTest)
#include "localfile_test.moc"
