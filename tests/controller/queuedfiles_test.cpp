// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "controller/queuedfiles.h"
#include "support/testclass.h"

#include <QTest>

using namespace quorvale;
using namespace Qt::StringLiterals;

class QueuedFilesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aFileIsThereUntilItsLastJobIsNot()
    {
        QueuedFiles files;
        files.insert(file(u"/v/a.mp4"_s));
        files.insert(file(u"/v/a.mp4"_s));
        files.remove(file(u"/v/a.mp4"_s));
        QVERIFY(files.contains(file(u"/v/a.mp4"_s)));
        files.remove(file(u"/v/a.mp4"_s));
        QVERIFY(!files.contains(file(u"/v/a.mp4"_s)));
    }

    void whatWasNotInsertedIsNoneAndItsRemovalDoesNothing()
    {
        QueuedFiles files;
        files.remove(file(u"/v/a.mp4"_s));
        QVERIFY(!files.contains(file(u"/v/a.mp4"_s)));
        files.insert(file(u"/v/a.mp4"_s));
        QVERIFY(files.contains(file(u"/v/a.mp4"_s)));
        QVERIFY(!files.contains(file(u"/v/A.mp4"_s)));
        QVERIFY(!files.contains(file(u"/v/a.mp4.mp4"_s)));
    }

    void dotsInThePathMakeNoOtherFile()
    {
        QueuedFiles files;
        files.insert(file(u"/v/./w/../a.mp4"_s));
        QVERIFY(files.contains(file(u"/v/a.mp4"_s)));
        QVERIFY(files.contains(file(u"/v//a.mp4"_s)));
        QVERIFY(files.contains(file(u"/v/a.mp4/"_s)));
        QVERIFY(files.contains(file(u"/v/a.mp4/."_s)));
        QVERIFY(!files.contains(file(u"/v/.a.mp4"_s)));
        QVERIFY(!files.contains(file(u"/v/.../a.mp4"_s)));
        files.remove(file(u"/v/a.mp4"_s));
        QVERIFY(!files.contains(file(u"/v/./w/../a.mp4"_s)));
    }

    void filesWhoseNamesAreNoTextAreToldApart()
    {
        QueuedFiles files;
        files.insert(QUrl::fromEncoded("file:///v/%E8.mp4"));
        QVERIFY(!files.contains(QUrl::fromEncoded("file:///v/%E9.mp4")));
        QVERIFY(files.contains(QUrl::fromEncoded("file:///v/w/../%E8.mp4")));
        QVERIFY(!files.contains(file(u"/v/\uFFFD.mp4"_s)));
    }

private:
    static QUrl file(const QString &path) { return QUrl::fromLocalFile(path); }
};

QUORVALE_TEST(QueuedFilesTest)
#include "queuedfiles_test.moc"
