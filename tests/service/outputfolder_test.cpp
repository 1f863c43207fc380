// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "service/outputfolder.h"
#include "service/systemerror.h"
#include "support/testclass.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace quorvale;
using namespace Qt::StringLiterals;

namespace {

QString messageFor(const QString &output)
{
    try {
        createFolderFor(QUrl::fromLocalFile(output));
    } catch (const SystemError &error) {
        return QString::fromUtf8(error.what());
    }
    return {};
}

} // namespace

class OutputFolderTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void createsAllMissingFolders()
    {
        const QTemporaryDir folder;
        QCOMPARE(messageFor(folder.filePath(u"a/b c/\u05d0/clip.mp4"_s)), QString());
        QVERIFY(QDir(folder.filePath(u"a/b c/\u05d0"_s)).exists());
        QVERIFY(!QFile::exists(folder.filePath(u"a/b c/\u05d0/clip.mp4"_s)));
    }

    void anExistingFolderIsNoError()
    {
        const QTemporaryDir folder;
        QCOMPARE(messageFor(folder.filePath(u"clip.mp4"_s)), QString());
    }

    void aLinkToAFolderIsNoError()
    {
        const QTemporaryDir folder;
        QVERIFY(QDir(folder.path()).mkdir(u"real"_s));
        QVERIFY(QFile::link(folder.filePath(u"real"_s), folder.filePath(u"link"_s)));
        QCOMPARE(messageFor(folder.filePath(u"link/clip.mp4"_s)), QString());
    }

    void aFileWhereTheFolderShouldBeIsNamed()
    {
        const QTemporaryDir folder;
        QFile file(folder.filePath(u"taken"_s));
        QVERIFY(file.open(QIODevice::WriteOnly));
        for (const QString &output : {u"taken/clip.mp4"_s, u"taken/deeper/clip.mp4"_s}) {
            const QString message = messageFor(folder.filePath(output));
            QVERIFY2(message.contains(folder.filePath(u"taken"_s)), qPrintable(message));
            QVERIFY2(message.contains(u"Not a directory"_s), qPrintable(message));
        }
    }

    void aNameThatIsTooLongIsSaidSo()
    {
        const QTemporaryDir folder;
        QCOMPARE(messageFor(folder.filePath(QString(251, u'x') + u".mp4"_s)), QString());
        const QString tooLong = QString(252, u'x') + u".mp4"_s;
        QCOMPARE(messageFor(folder.filePath(tooLong)),
                 u"The name of the output file is too long: “%1”"_s.arg(tooLong));
    }
};

QUORVALE_TEST(OutputFolderTest)
#include "outputfolder_test.moc"
