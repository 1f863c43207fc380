// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "service/specialfile.h"
#include "service/systemerror.h"
#include "support/testclass.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

using namespace quorvale;
using namespace Qt::StringLiterals;

class SpecialFileTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aNamedPipeIsRefused()
    {
        const QString pipe = m_folder.filePath(u"pipe.mp4"_s);
        QCOMPARE(::mkfifo(qPrintable(pipe), 0600), 0);
        QCOMPARE(refusal(pipe), u"“%1” is a named pipe, not a video file."_s.arg(pipe));
        const QString link = m_folder.filePath(u"link.mp4"_s);
        QVERIFY(QFile::link(pipe, link));
        QCOMPARE(refusal(link), u"“%1” is a named pipe, not a video file."_s.arg(link));
    }

    void aSocketIsRefused()
    {
        const QString path = m_folder.filePath(u"socket.mp4"_s);
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        const QByteArray name = path.toUtf8();
        QVERIFY(name.size() < static_cast<qsizetype>(sizeof address.sun_path));
        std::ranges::copy(name, address.sun_path);
        const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
        const int error =
            ::bind(socket, reinterpret_cast<const sockaddr *>(&address), sizeof address);
        ::close(socket);
        QCOMPARE(error, 0);
        QCOMPARE(refusal(path), u"“%1” is a socket, not a video file."_s.arg(path));
    }

    void aDeviceIsRefused()
    {
        QCOMPARE(refusal(u"/dev/zero"_s), u"“/dev/zero” is a device, not a video file."_s);
    }

    void everythingElseIsNotThisOnesBusiness()
    {
        const QString file = m_folder.filePath(u"clip.mp4"_s);
        QVERIFY(QFile(file).open(QIODevice::WriteOnly));
        QCOMPARE(refusal(file), QString());
        QCOMPARE(refusal(m_folder.path()), QString());
        QCOMPARE(refusal(u"/no/such/clip.mp4"_s), QString());
    }

private:
    // What is said about it; empty when it is not refused.
    static QString refusal(const QString &path)
    {
        try {
            refuseSpecialFile(QUrl::fromLocalFile(path));
        } catch (const SystemError &error) {
            return QString::fromUtf8(error.what());
        }
        return {};
    }

    QTemporaryDir m_folder;
};

QUORVALE_TEST(SpecialFileTest)
#include "specialfile_test.moc"
