// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "service/sourceguard.h"
#include "service/systemerror.h"
#include "support/testclass.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <filesystem>
#include <optional>

using namespace quorvale;
using namespace Qt::StringLiterals;

class SourceGuardTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_folder.emplace();
        makeFile(u"clip.mp4"_s);
    }

    void anotherFileMayBeReplaced()
    {
        makeFile(u"clip_converted.mp4"_s);
        QVERIFY(mayReplace(u"clip_converted.mp4"_s));
    }

    void whatIsNotThereMayBeWritten()
    {
        QVERIFY(mayReplace(u"clip_converted.mp4"_s));
        QVERIFY(mayReplace(u"no folder/clip.mp4"_s));
    }

    void aMissingSourceIsNotThisOnesBusiness()
    {
        QVERIFY(QFile::remove(path(u"clip.mp4"_s)));
        QVERIFY(mayReplace(u"clip.mp4"_s));
    }

    void theSourceMayNotBeReplaced()
    {
        QVERIFY(!mayReplace(u"clip.mp4"_s));
        QVERIFY(!mayReplace(u"./clip.mp4"_s));
    }

    void noLinkToTheSourceMayBeReplaced()
    {
        std::filesystem::create_hard_link(file(u"clip.mp4"_s), file(u"hard.mp4"_s));
        std::filesystem::create_symlink(file(u"clip.mp4"_s), file(u"soft.mp4"_s));
        std::filesystem::create_symlink("soft.mp4", file(u"softer.mp4"_s));
        std::filesystem::create_symlink(".", file(u"folder"_s));
        for (const QString &link :
             {u"hard.mp4"_s, u"soft.mp4"_s, u"softer.mp4"_s, u"folder/clip.mp4"_s})
            QVERIFY2(!mayReplace(link), qPrintable(link));
    }

    void aLinkThatLeadsNowhereMayBeWritten()
    {
        std::filesystem::create_symlink("/no/such/file", file(u"dead.mp4"_s));
        QVERIFY(mayReplace(u"dead.mp4"_s));
    }

    void theFileIsNamed()
    {
        const QUrl clip = QUrl::fromLocalFile(path(u"clip.mp4"_s));
        try {
            guardSource(clip, clip);
        } catch (const SystemError &error) {
            QCOMPARE(QString::fromUtf8(error.what()),
                     u"“%1” is the video that is to be converted, so it is not replaced."_s.arg(
                         clip.toLocalFile()));
            return;
        }
        QFAIL("No error");
    }

private:
    QString path(const QString &name) const { return m_folder->filePath(name); }

    std::filesystem::path file(const QString &name) const { return path(name).toStdString(); }

    void makeFile(const QString &name) const
    {
        QFile made(path(name));
        QVERIFY(made.open(QIODevice::WriteOnly));
    }

    // Whether the output of that name may be written for the source clip.mp4.
    bool mayReplace(const QString &output) const
    {
        try {
            guardSource(QUrl::fromLocalFile(path(u"clip.mp4"_s)),
                        QUrl::fromLocalFile(path(output)));
        } catch (const SystemError &) {
            return false;
        }
        return true;
    }

    std::optional<QTemporaryDir> m_folder;
};

QUORVALE_TEST(SourceGuardTest)
#include "sourceguard_test.moc"
