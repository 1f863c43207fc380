// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "support/leftovers.h"
#include "support/patience.h"
#include "support/queue.h"
#include "support/testclass.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTest>

#include <cmath>
#include <csignal>
#include <optional>

using namespace quorvale;
using namespace quorvale::test;
using namespace Qt::StringLiterals;

using enum JobState::Case;

// What becomes of a batch of three jobs when a tool misbehaves at the second one.

namespace {

const QString noFFmpeg = u"FFmpeg was not found. Install it with Homebrew: brew install ffmpeg"_s;
constexpr qint64 mebibyte = 1024 * 1024;

// What a conversion may take that keeps nothing. ThreadSanitizer has its own notes on every thread.
#ifdef __SANITIZE_THREAD__
constexpr qint64 littleMemory = 160 * mebibyte;
#else
constexpr qint64 littleMemory = 32 * mebibyte;
#endif

Script success()
{
    return Script().out("out_time_ms=5000000\nprogress=end\n").writeOutput("converted");
}

QByteArray everyByte()
{
    QByteArray bytes;
    for (int byte = 0; byte < 256; ++byte)
        bytes.append(static_cast<char>(byte));
    return bytes;
}

enum class Damage { removed, notExecutable, textFile, empty, missingInterpreter, folder, deadLink };

void damage(StandInTools &tools, const QString &tool, Damage damage)
{
    switch (damage) {
    case Damage::removed:
        return tools.removeTool(tool);
    case Damage::notExecutable:
        tools.replaceTool(tool, "#!/bin/true\n");
        QVERIFY(QFile::setPermissions(tools.path(tool), QFile::ReadOwner | QFile::WriteOwner));
        return;
    case Damage::textFile:
        return tools.replaceTool(tool, "A text, not a program.\n");
    case Damage::empty:
        return tools.replaceTool(tool, {});
    case Damage::missingInterpreter:
        return tools.replaceTool(tool, "#!/no/such/interpreter\n");
    case Damage::folder:
        tools.removeTool(tool);
        QVERIFY(QDir().mkdir(tools.path(tool)));
        return;
    case Damage::deadLink:
        tools.removeTool(tool);
        QVERIFY(QFile::link(u"/no/such/tool"_s, tools.path(tool)));
        return;
    }
}

void addDamages()
{
    QTest::addColumn<Damage>("kind");
    QTest::addColumn<QString>("reason"); // why ffmpeg cannot be started, none when it is not found
    QTest::newRow("removed") << Damage::removed << QString();
    QTest::newRow("not executable") << Damage::notExecutable << QString();
    QTest::newRow("a text") << Damage::textFile << u"Exec format error"_s;
    QTest::newRow("empty") << Damage::empty << u"Exec format error"_s;
    QTest::newRow("no interpreter") << Damage::missingInterpreter << u"No such file"_s;
    QTest::newRow("a folder") << Damage::folder << QString();
    QTest::newRow("a dead link") << Damage::deadLink << QString();
}

} // namespace

class ToolFaultsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        // What Qt makes once and keeps is there from now on.
        makeQueue();
        QVERIFY(m_queue->runBatch());
        m_queue.reset();
    }

    void init()
    {
        m_leftovers.emplace();
        makeQueue();
    }

    void cleanup()
    {
        m_queue.reset();
        QCOMPARE(m_leftovers->found(), QString());
    }

    void ffmpegSpoiltForOneJobFailsThatJobOnly_data() { addDamages(); }
    void ffmpegSpoiltForOneJobFailsThatJobOnly()
    {
        QFETCH(const Damage, kind);
        QFETCH(const QString, reason);
        spoilForSecondJob(u"ffmpeg"_s, kind);
        QVERIFY(m_queue->runBatch());
        QCOMPARE(m_queue->state(0), completed);
        QCOMPARE(m_queue->state(1), failed);
        QCOMPARE(m_queue->state(2), completed);
        const QString message = m_queue->job(1).state.message();
        if (reason.isEmpty()) {
            QCOMPARE(message, noFFmpeg);
        } else {
            const QString tool = m_queue->tools().path(u"ffmpeg"_s);
            QVERIFY2(message.startsWith(u"“%1” could not be started: "_s.arg(tool)),
                     qPrintable(message));
            QVERIFY2(message.contains(reason), qPrintable(message));
        }
        QVERIFY(!m_queue->model().alertMessage());
    }

    void ffprobeSpoiltForOneJobHarmsNone_data() { addDamages(); }
    void ffprobeSpoiltForOneJobHarmsNone()
    {
        QFETCH(const Damage, kind);
        spoilForSecondJob(u"ffprobe"_s, kind);
        QVERIFY(m_queue->runBatch());
        verifyAllCompleted();
        // The second job's source was described by ffmpeg.
        QCOMPARE(m_queue->tools().runs(u"ffmpeg"_s).size(), 4);
    }

    void anotherFFmpegPutInPlaceServesTheNextJob()
    {
        connect(m_queue->model().jobModel(), &JobListModel::changed, this, [this] {
            if (m_queue->state(1) == converting)
                m_queue->tools().replaceTool(u"ffmpeg"_s, "#!/bin/sh\necho another >&2; exit 7\n");
        });
        QVERIFY(m_queue->runBatch());
        QCOMPARE(m_queue->state(0), completed);
        QVERIFY(m_queue->job(1).state == JobState::failed(u"another"_s));
        QVERIFY(m_queue->job(2).state == JobState::failed(u"another"_s));
    }

    void ffmpegThatMisbehavesEndsAsItsStatusSays_data()
    {
        QTest::addColumn<Script>("script");
        QTest::addColumn<std::optional<QString>>("message"); // none for success
        using Message = std::optional<QString>;
        const Message general = u"FFmpeg could not convert this file."_s;
        QTest::newRow("says nothing") << Script().exit(0) << Message();
        QTest::newRow("fails without a word") << Script().exit(255) << general;
        QTest::newRow("prints every byte")
            << Script().outRepeatedly(5000, everyByte()).exit(0) << Message();
        QTest::newRow("complains with every byte between line feeds")
            << Script().err(QByteArray("\0\x01\x80\xc3\n\xff\xfe caf\xe9\n", 13)).exit(1)
            << Message(u"\0\u0001\uFFFD\uFFFD\n\uFFFD\uFFFD caf\uFFFD"_s);
        QTest::newRow("a line of 100 MB")
            << Script().outRepeatedly(100'000'000, "x").out("\nprogress=end\n").exit(0)
            << Message();
        QTest::newRow("a complaint of 100 MB in one line")
            << Script().errRepeatedly(100'000'000, "x").err("\nno\n").exit(1)
            << Message(QString(16'384, u'x') + u"\nno"_s);
        QTest::newRow("a complaint of 1 GB")
            << Script().errRepeatedly(100'000, QByteArray(9'999, '-') + '\n').err("no\n").exit(1)
            << Message((QString(9'999, u'-') + u'\n').repeated(7) + u"no"_s);
        QTest::newRow("closes its streams at once")
            << Script().closeOut().closeErr().wait(50).exit(3) << general;
        QTest::newRow("leaves a process behind that holds its streams")
            << Script().leaveGrandchild(patience).exit(1) << general;
        QTest::newRow("times that are none")
            << Script()
                   .out("out_time_ms=N/A\nout_time_ms=-5\nout_time_ms=-9223372036854775808\n"
                        "out_time_ms=9223372036854775807\nout_time_ms=1e400\nout_time_ms=-1e400\n"
                        "out_time_ms=nan\nout_time_ms=-nan\nout_time_ms=inf\nout_time_ms=\n"
                        "out_time_ms=0x10\nout_time_ms=1e\nout_time_ms\n=\n\n")
                   .exit(0)
            << Message();
    }
    void ffmpegThatMisbehavesEndsAsItsStatusSays()
    {
        QFETCH(const Script, script);
        QFETCH(const std::optional<QString>, message);
        m_queue->setConversion(2, script);
        bool isSound = true; // no figure that cannot be shown
        connect(&m_queue->model(), &ConverterViewModel::jobsChanged, this, [&] {
            const double overall = m_queue->model().overallProgress();
            isSound = isSound && std::isfinite(overall) && overall <= 1.0;
        });
        const qint64 before = residentMemory();
        QElapsedTimer timer;
        timer.start();
        QVERIFY(m_queue->runBatch());
        QVERIFY2(timer.elapsed() < patience / 2, "the batch has waited for it");
        QVERIFY2(residentMemory() - before < littleMemory, "what it printed was kept");
        QVERIFY(isSound);
        QCOMPARE(m_queue->state(0), completed);
        QVERIFY(m_queue->job(1).state
                == (message ? JobState::failed(*message) : JobState::completed()));
        QCOMPARE(m_queue->state(2), completed);
    }

    void progressThatComesFasterThanItIsShownDoesNotPileUp()
    {
        const QString end = m_queue->tools().path(u"flooded"_s);
        m_queue->setConversion(2, Script()
                                      .outRepeatedly(2'000'000, "out_time_ms=5000000\n")
                                      .touch(end)
                                      .out("progress=end\n"));
        const qint64 before = residentMemory();
        qint64 grown = 0;
        connect(m_queue->model().jobModel(), &JobListModel::changed, this, [&] {
            // The main thread is busy until the flood is over.
            if (grown == 0 && m_queue->job(1).progress == 0.5) {
                while (!QFile::exists(end))
                    QTest::qSleep(1);
                grown = residentMemory() - before;
            }
        });
        QVERIFY(m_queue->runBatch());
        QVERIFY(grown != 0);
        QVERIFY2(!memoryTells || grown < 100 * mebibyte,
                 qPrintable(QString::number(grown / mebibyte)));
        verifyAllCompleted();
    }

    void aProcessLeftBehindThatFloodsTheStreamsDoesNotHoldTheBatch()
    {
        m_queue->setConversion(2, Script().leaveFloodingGrandchild(patience).exit(0));
        QElapsedTimer timer;
        timer.start();
        QVERIFY(m_queue->runBatch());
        QVERIFY2(timer.elapsed() < patience / 2, "the batch has waited for it");
        verifyAllCompleted();
    }

    void ffmpegThatCrashesEndsTheBatch_data()
    {
        QTest::addColumn<int>("signal");
        QTest::newRow("SIGSEGV") << SIGSEGV;
        QTest::newRow("SIGKILL, as for want of memory") << SIGKILL;
        QTest::newRow("SIGXFSZ") << SIGXFSZ;
    }
    void ffmpegThatCrashesEndsTheBatch()
    {
        // Whom a signal has ended cannot be told, so it counts as the user's own.
        QFETCH(const int, signal);
        m_queue->setConversion(2, Script().out("out_time_ms=5000000\n").die(signal));
        QVERIFY(m_queue->runBatch());
        QCOMPARE(m_queue->state(0), completed);
        QCOMPARE(m_queue->state(1), cancelled);
        QCOMPARE(m_queue->state(2), waiting);
        QVERIFY(m_queue->runBatch());
        verifyAllCompleted();
    }

    void ffprobeThatMisbehavesHarmsNone_data()
    {
        QTest::addColumn<Script>("script");
        QTest::newRow("says nothing") << Script();
        QTest::newRow("fails") << Script().err("no\n").exit(1);
        QTest::newRow("crashes") << Script().out("{").die(SIGSEGV);
        QTest::newRow("prints every byte") << Script().outRepeatedly(5000, everyByte());
        QTest::newRow("a line of 100 MB") << Script().outRepeatedly(100'000'000, "x");
        QTest::newRow("a string that never ends")
            << Script().out("{\"format\": \"").outRepeatedly(100'000'000, "x");
        QTest::newRow("arrays in arrays") << Script().outRepeatedly(1'000'000, "[");
        QTest::newRow("closes its streams at once") << Script().closeOut().closeErr().wait(50);
        QTest::newRow("complains without end")
            << Script().errRepeatedly(1'000'000, QByteArray(100, 'x'));
        QTest::newRow("leaves a process behind that holds its streams")
            << Script().leaveGrandchild(patience);
    }
    void ffprobeThatMisbehavesHarmsNone()
    {
        QFETCH(const Script, script);
        m_queue->tools().setScript(u"ffprobe"_s, 2, script);
        const qint64 before = residentMemory();
        QElapsedTimer timer;
        timer.start();
        QVERIFY(m_queue->runBatch());
        QVERIFY2(timer.elapsed() < patience / 2, "the batch has waited for it");
        // What it says is looked at as a whole, up to a limit, in some forms at a time.
        QVERIFY2(residentMemory() - before < 160 * mebibyte, "what it printed was kept");
        verifyAllCompleted();
    }

private:
    void makeQueue()
    {
        m_queue.emplace();
        m_queue->setConversions(success());
        m_queue->add({u"1.mkv"_s, u"2.mkv"_s, u"3.mkv"_s});
    }

    // Puts the damaged tool in place as the second job's turn comes, and a good one at its end.
    void spoilForSecondJob(const QString &tool, Damage kind)
    {
        connect(m_queue->model().jobModel(), &JobListModel::changed, this,
                [=, this, done = false, isSpoilt = false]() mutable {
                    const JobState::Case state = m_queue->state(1);
                    if (state == converting && !isSpoilt) {
                        isSpoilt = true;
                        damage(m_queue->tools(), tool, kind);
                    } else if (isSpoilt && !done && state != converting) {
                        done = true;
                        m_queue->tools().restoreTool(tool);
                    }
                });
    }

    void verifyAllCompleted() const
    {
        for (qsizetype row = 0; row < 3; ++row)
            QCOMPARE(m_queue->state(row), completed);
        QCOMPARE(m_queue->model().overallProgress(), 1.0);
        QVERIFY(!m_queue->model().alertMessage());
    }

    std::optional<Leftovers> m_leftovers;
    std::optional<Queue> m_queue;
};

QUORVALE_TEST(ToolFaultsTest)
#include "toolfaults_test.moc"
