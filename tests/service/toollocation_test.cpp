// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "service/ffmpegservice.h"
#include "support/testclass.h"
#include "support/testtooldirectories.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace quorvale;
using namespace Qt::StringLiterals;

class ToolLocationTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_root = std::make_unique<QTemporaryDir>();
        for (const QString &name : {u"first"_s, u"second"_s, u"third"_s, u"elsewhere"_s})
            QVERIFY(QDir(m_root->path()).mkdir(name));
        test::setToolDirectories({folder(u"first"_s), folder(u"second"_s), folder(u"third"_s)});
    }

    void theFirstDirectoryWins()
    {
        makeFile(u"first/ffmpeg"_s);
        makeFile(u"second/ffmpeg"_s);
        QCOMPARE(located(), folder(u"first"_s) + u"ffmpeg"_s);
    }

    void aFileWithoutExecutePermissionIsPassedOver()
    {
        makeFile(u"second/ffmpeg"_s, QFile::ReadOwner);
        makeFile(u"third/ffmpeg"_s);
        QCOMPARE(located(), folder(u"third"_s) + u"ffmpeg"_s);
    }

    void aFolderOfThatNameIsPassedOver()
    {
        QVERIFY(QDir(m_root->path()).mkdir(u"first/ffmpeg"_s));
        makeFile(u"second/ffmpeg"_s);
        QCOMPARE(located(), folder(u"second"_s) + u"ffmpeg"_s);
    }

    void aLinkThatLeadsNowhereIsPassedOver()
    {
        QVERIFY(QFile::link(u"/no/such/ffmpeg"_s, m_root->filePath(u"first/ffmpeg"_s)));
        makeFile(u"third/ffmpeg"_s);
        QCOMPARE(located(), folder(u"third"_s) + u"ffmpeg"_s);
    }

    void aLinkToAnExecutableCounts()
    {
        makeFile(u"elsewhere/real"_s);
        QVERIFY(QFile::link(m_root->filePath(u"elsewhere/real"_s),
                            m_root->filePath(u"first/ffmpeg"_s)));
        QCOMPARE(located(), folder(u"first"_s) + u"ffmpeg"_s);
    }

    void theSearchPathIsNotConsulted()
    {
        makeFile(u"elsewhere/ffmpeg"_s);
        const QByteArray path = qgetenv("PATH");
        qputenv("PATH", QFile::encodeName(folder(u"elsewhere"_s)) + ':' + path);
        QVERIFY(!FFmpegService::locateBinary(u"ffmpeg"_s));
        qputenv("PATH", path);
    }

    void eachToolIsLookedForByItself()
    {
        makeFile(u"first/ffprobe"_s);
        makeFile(u"third/ffmpeg"_s);
        QCOMPARE(located(), folder(u"third"_s) + u"ffmpeg"_s);
        QVERIFY(FFmpegService::locateBinary(u"ffprobe"_s)
                == QUrl::fromLocalFile(folder(u"first"_s) + u"ffprobe"_s));
    }

    void nothingIsRemembered()
    {
        QVERIFY(!FFmpegService::locateBinary(u"ffmpeg"_s));
        makeFile(u"third/ffmpeg"_s);
        QCOMPARE(located(), folder(u"third"_s) + u"ffmpeg"_s);
        makeFile(u"first/ffmpeg"_s);
        QCOMPARE(located(), folder(u"first"_s) + u"ffmpeg"_s);
        QVERIFY(QFile::remove(m_root->filePath(u"first/ffmpeg"_s)));
        QCOMPARE(located(), folder(u"third"_s) + u"ffmpeg"_s);
    }

    void acceptsExactlyTenExtensions()
    {
        const QSet<QString> expected{u"mp4"_s, u"mov"_s, u"mkv"_s,  u"webm"_s, u"m4v"_s,
                                     u"avi"_s, u"mts"_s, u"m2ts"_s, u"ts"_s,   u"flv"_s};
        QCOMPARE(FFmpegService::supportedExtensions(), expected);
    }

private:
    QString folder(const QString &name) const { return m_root->filePath(name) + u'/'; }

    void makeFile(const QString &name,
                  QFile::Permissions permissions = QFile::ReadOwner | QFile::ExeOwner)
    {
        QFile file(m_root->filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QVERIFY(file.setPermissions(permissions));
    }

    static QString located()
    {
        return FFmpegService::locateBinary(u"ffmpeg"_s).value_or(QUrl()).toLocalFile();
    }

    std::unique_ptr<QTemporaryDir> m_root;
};

QUORVALE_TEST(ToolLocationTest)
#include "toollocation_test.moc"
