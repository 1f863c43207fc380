// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "support/conversion.h"
#include "support/leftovers.h"
#include "support/patience.h"
#include "support/slowdisk.h"
#include "support/standintools.h"
#include "support/testclass.h"

#include <QDir>
#include <QElapsedTimer>
#include <QTest>

#include <optional>

#include <unistd.h>

using namespace quorvale;
using namespace quorvale::test;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

// What a cancel does not wait for is at an end with it. This program has the stand-in of
// tests/fakes/slowdisk.cpp in itself.
class GivingUpTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_tools.emplace();
        m_tools->setScript(u"ffmpeg"_s, Script().out("progress=end\n"));
        m_disk = std::make_unique<SlowDisk>();
        qputenv(SlowDisk::variable, m_disk->steering().toUtf8());
        m_service = std::make_unique<FFmpegService>(
            CancelPatience{.disk = shortPatience, .probe = shortPatience});
    }

    void cleanup()
    {
        m_service.reset();
        m_disk.reset();
    }

    void aProbeIsKilledAndFollowedByNothing()
    {
        m_tools->setScript(u"ffprobe"_s, m_tools->untilReleased(Script().ignoreInterrupt()));
        const Holdings before = Holdings::now();
        const auto conversion = convert();
        QVERIFY(m_tools->awaitWaiting());
        verifyCancelled(conversion);
        QTRY_COMPARE_WITH_TIMEOUT(Holdings::now().children, before.children, patience);
        QCOMPARE(m_tools->runs(u"ffmpeg"_s).size(), 0);
    }

    void aDiskIsAskedNothingFurther()
    {
        m_disk->hang();
        const auto conversion = convert();
        QTRY_COMPARE_WITH_TIMEOUT(m_disk->questions(::getpid()), 1, patience);
        const Holdings asking = Holdings::now();
        verifyCancelled(conversion);
        m_disk->answerAtOnce();
        QTRY_VERIFY_WITH_TIMEOUT(Holdings::now().threads < asking.threads, patience);
        QCOMPARE(m_disk->questions(::getpid()), 1);
        QVERIFY(QDir(m_disk->path()).isEmpty());
    }

    void anotherDiskIsAskedMeanwhile()
    {
        m_disk->hang();
        const auto conversion = convert();
        QTRY_COMPARE_WITH_TIMEOUT(m_disk->questions(::getpid()), 1, patience);
        verifyCancelled(conversion);
        QVERIFY(endOf(convert(m_tools->path(u"clip.mp4"_s))).isSuccess());
    }

    void leavesNothingBehind()
    {
        cleanup();
        m_tools.reset();
        const Leftovers leftovers;
        init();
        for (int i = 0; i < 50; ++i) { // two cancels each
            m_tools->setScript(u"ffprobe"_s, m_tools->untilReleased());
            const auto probing = convert();
            QVERIFY(m_tools->awaitWaiting());
            verifyCancelled(probing);

            m_tools->setScript(u"ffprobe"_s, Script().out(description));
            const qsizetype before = m_disk->questions(::getpid());
            m_disk->hang();
            const auto asking = convert();
            QTRY_VERIFY_WITH_TIMEOUT(m_disk->questions(::getpid()) > before, patience);
            verifyCancelled(asking);
            m_disk->answerAtOnce();
        }
        cleanup();
        m_tools.reset();
        QCOMPARE(leftovers.found(), QString());
    }

private:
    static constexpr auto shortPatience = 10ms;
    static constexpr auto description = R"({"format": {"duration": "10"}})";

    QFuture<ConvertedFile> convert(const QString &output)
    {
        return m_service->convert(QUrl::fromLocalFile(u"/in/clip.mkv"_s),
                                  QUrl::fromLocalFile(output), {}, [](double) {});
    }
    QFuture<ConvertedFile> convert() { return convert(m_disk->path(u"a/b/c/clip.mp4"_s)); }

    void verifyCancelled(const QFuture<ConvertedFile> &conversion)
    {
        constexpr qint64 longest = 2000; // far less than the patience by default
        QElapsedTimer time;
        time.start();
        m_service->cancel();
        QVERIFY(endOf(conversion).ffmpegError == FFmpegError::Case::cancelled);
        QVERIFY2(time.elapsed() < longest, qPrintable(QString::number(time.elapsed())));
    }

    std::optional<StandInTools> m_tools;
    std::unique_ptr<SlowDisk> m_disk;
    std::unique_ptr<FFmpegService> m_service;
};

QUORVALE_TEST(GivingUpTest)
#include "givingup_test.moc"
