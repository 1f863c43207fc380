// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "controller/converterviewmodel.h"
#include "support/clips.h"
#include "support/filesizelimit.h"
#include "support/filetree.h"
#include "support/leftovers.h"
#include "support/mediafacts.h"
#include "support/permissions.h"
#include "support/queue.h"
#include "support/testclass.h"
#include "support/toolrun.h"

#include <QFile>
#include <QTest>

#include <functional>
#include <optional>

#include <sys/stat.h>
#include <unistd.h>

using namespace quorvale;
using namespace quorvale::test;
using namespace Qt::StringLiterals;

using enum JobState::Case;

// What becomes of a batch, converted by the machine's own ffmpeg, when files and folders are not as
// they should be.

namespace {

constexpr ConversionSettings quick{.codec = OutputCodec::h264, .useHardware = false};

} // namespace

class FileFaultsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        useMachineTools();
        letPermissionsBind();
        m_clip = contentsOf(makeClip(u"h264.mp4"_s, QDir(m_folder.path())));
        const QString longClip = m_folder.filePath(u"long.mp4"_s);
        repeatClip(m_folder.filePath(u"h264.mp4"_s), 40, longClip);
        m_longClip = contentsOf(longClip);
        // What Qt makes once and keeps is there from now on.
        m_queue.emplace(Tools::machine);
        addSources({u"1.mp4"_s});
        QVERIFY(m_queue->runBatch());
        m_queue.reset();
    }

    void init()
    {
        m_leftovers.emplace();
        m_queue.emplace(Tools::machine);
        m_queue->model().setSettings(quick);
    }

    void cleanup()
    {
        QFile::setPermissions(m_queue->outputs().path(),
                              QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        m_queue.reset();
        QCOMPARE(m_leftovers->found(), QString());
    }

    void aSpoiltSourceFailsItsJobOnly_data()
    {
        using Spoil = std::function<void(const QString &path)>;
        QTest::addColumn<Spoil>("spoil");
        QTest::addColumn<QString>("reason");
        const auto row = [](const char *name, const QString &reason, const Spoil &spoil) {
            QTest::newRow(name) << spoil << reason;
        };
        row("deleted", u"No such file or directory"_s,
            [](const QString &path) { QVERIFY(QFile::remove(path)); });
        row("cut off", u"Invalid data found"_s,
            [](const QString &path) { QVERIFY(QFile::resize(path, 2000)); });
        row("emptied", u"Invalid data found"_s,
            [](const QString &path) { QVERIFY(QFile::resize(path, 0)); });
        row("a text", u"Invalid data found"_s,
            [](const QString &path) { write(path, "Not a video.\n"); });
        row("unreadable", u"Permission denied"_s,
            [](const QString &path) { QVERIFY(QFile::setPermissions(path, {})); });
        row("a folder", u"Is a directory"_s, [](const QString &path) {
            QVERIFY(QFile::remove(path));
            QVERIFY(QDir().mkdir(path));
        });
        row("a named pipe", u"is a named pipe, not a video file."_s, [](const QString &path) {
            QVERIFY(QFile::remove(path));
            QCOMPARE(::mkfifo(qPrintable(path), 0600), 0);
        });
        row("a link to itself", u"Too many levels of symbolic links"_s, [](const QString &path) {
            QVERIFY(QFile::remove(path));
            QVERIFY(QFile::link(path, path));
        });
    }
    void aSpoiltSourceFailsItsJobOnly()
    {
        QFETCH(const std::function<void(const QString &path)>, spoil);
        QFETCH(const QString, reason);
        addSources({u"1.mp4"_s, u"2.mp4"_s, u"3.mp4"_s});
        const QString path = m_queue->sources().filePath(u"2.mp4"_s);
        onceConverting(0, [&] { spoil(path); });
        QVERIFY(m_queue->runBatch());
        verifyStates({completed, failed, completed});
        const QString message = m_queue->job(1).state.message();
        QVERIFY2(message.contains(reason) && message.contains(path), qPrintable(message));
        QCOMPARE(outputs(), (QStringList{u"1_converted.mp4"_s, u"3_converted.mp4"_s}));
    }

    void aSourceDeletedWhileItIsConvertedIsConvertedAllTheSame()
    {
        addLongSourceAndAnother();
        onceProgressing(
            [&] { QVERIFY(QFile::remove(m_queue->sources().filePath(u"1 long.mp4"_s))); });
        QVERIFY(m_queue->runBatch());
        verifyStates({completed, completed});
        QVERIFY(*mediaFacts(m_queue->outputs().filePath(u"1 long_converted.mp4"_s)).duration > 39);
    }

    void aSourceCutOffWhileItIsConvertedDoesNotStopTheBatch()
    {
        addLongSourceAndAnother();
        onceProgressing(
            [&] { QVERIFY(QFile::resize(m_queue->sources().filePath(u"1 long.mp4"_s), 5000)); });
        QVERIFY(m_queue->runBatch());
        // ffmpeg decides whether what it could read was enough.
        QVERIFY(m_queue->job(0).state.is(completed) || m_queue->job(0).state.is(failed));
        QVERIFY(isConverted(m_queue->job(1)));
    }

    void anOutputFolderDeletedDuringTheBatchIsMadeAgain()
    {
        addLongSourceAndAnother();
        onceProgressing([&] { QVERIFY(m_queue->outputs().removeRecursively()); });
        QVERIFY(m_queue->runBatch());
        QVERIFY(isConverted(m_queue->job(1)));
        QVERIFY(outputs().contains(u"2_converted.mp4"_s));
    }

    void anOutputFolderThatMayNotBeWrittenFailsTheJobs()
    {
        const QString before = m_queue->outputs().filePath(u"1_converted.mp4"_s);
        write(before, "someone's own");
        QVERIFY(
            QFile::setPermissions(m_queue->outputs().path(), QFile::ReadOwner | QFile::ExeOwner));
        addSources({u"1.mp4"_s, u"2.mp4"_s});
        QVERIFY(m_queue->runBatch());
        verifyStates({failed, failed});
        for (qsizetype row = 0; row < 2; ++row) {
            const QString message = m_queue->job(row).state.message();
            QVERIFY2(message.contains(u"Permission denied"_s), qPrintable(message));
            QVERIFY2(message.contains(m_queue->outputs().path()), qPrintable(message));
        }
        QCOMPARE(outputs(), QStringList(u"1_converted.mp4"_s));
        QCOMPARE(contentsOf(before), "someone's own");
    }

    void anOutputFolderThatMayNotBeMadeFailsTheJobs()
    {
        addSources({u"1.mp4"_s, u"2.mp4"_s});
        const QString outer = QDir::cleanPath(m_queue->outputs().filePath(u".."_s));
        QVERIFY(m_queue->outputs().removeRecursively());
        QVERIFY(QFile::setPermissions(outer, QFile::ReadOwner | QFile::ExeOwner));
        QVERIFY(m_queue->runBatch());
        QFile::setPermissions(outer, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        verifyStates({failed, failed});
        const QString folder = m_queue->outputs().path();
        QCOMPARE(m_queue->job(1).state.message(),
                 u"The folder “%1” could not be created: Permission denied"_s.arg(folder));
        QVERIFY(!QFile::exists(folder));
    }

    void anOutputThatDoesNotFitFailsItsJobOnly()
    {
        // ProRes, whose data is too large for ffmpeg to hold back until the end.
        m_queue->model().setSettings(
            {.codec = OutputCodec::proRes422, .audio = AudioMode::pcm, .useHardware = false});
        addSources({u"1.mp4"_s, u"2.mp4"_s, u"3.mp4"_s});
        FileSizeLimit limit; // while the second job is converted
        onceConverting(1, [&] { limit.set(4096); });
        onceConverting(2, [&] { limit.lift(); });
        QVERIFY(m_queue->runBatch());
        verifyStates({completed, failed, completed});
        const QString message = m_queue->job(1).state.message();
        QVERIFY2(message.contains(u"File too large"_s), qPrintable(message));
    }

    void aFullDiskFailsItsJobOnly()
    {
        m_queue->model().setSettings(
            {.codec = OutputCodec::proRes422, .useHardware = false, .overwrite = true});
        const QString full = m_queue->outputs().filePath(u"2_converted.mov"_s);
        QVERIFY(QFile::link(u"/dev/full"_s, full));
        addSources({u"1.mp4"_s, u"2.mp4"_s, u"3.mp4"_s});
        QVERIFY(m_queue->runBatch());
        verifyStates({completed, failed, completed});
        const QString message = m_queue->job(1).state.message();
        QVERIFY2(message.contains(u"No space left on device"_s), qPrintable(message));
        QCOMPARE(QFile::symLinkTarget(full), u"/dev/full"_s);
    }

    void anOutputThatIsTheSourceIsNotOverwritten_data()
    {
        QTest::addColumn<bool>("isHardLink");
        QTest::newRow("hard link") << true;
        QTest::newRow("symbolic link") << false;
    }
    void anOutputThatIsTheSourceIsNotOverwritten()
    {
        QFETCH(const bool, isHardLink);
        ConversionSettings settings = quick;
        settings.overwrite = true;
        m_queue->model().setSettings(settings);
        addSources({u"1.mp4"_s, u"2.mp4"_s, u"3.mp4"_s});
        const QString source = m_queue->sources().filePath(u"2.mp4"_s);
        const QString output = m_queue->outputs().filePath(u"2_converted.mp4"_s);
        linkTo(source, output, isHardLink);
        QVERIFY(m_queue->runBatch());
        QVERIFY(contentsOf(source) == m_clip);
        verifyStates({completed, failed, completed});
        QCOMPARE(
            m_queue->job(1).state.message(),
            u"“%1” is the video that is to be converted, so it is not replaced."_s.arg(output));
    }

    void sourcesInTheOutputFolderStayAsTheyAre_data()
    {
        QTest::addColumn<bool>("overwrite");
        QTest::newRow("overwriting") << true;
        QTest::newRow("not overwriting") << false;
    }
    void sourcesInTheOutputFolderStayAsTheyAre()
    {
        QFETCH(const bool, overwrite);
        ConversionSettings settings = quick;
        settings.overwrite = overwrite;
        m_queue->model().setSettings(settings);
        const QDir folder = m_queue->outputs();
        for (const QString &name : {u"a.mp4"_s, u"a.mov"_s, u"b_converted.mp4"_s})
            write(folder.filePath(name), m_clip);
        QVERIFY(m_queue->drop(folder.path(), 3));
        QVERIFY(m_queue->runBatch());
        verifyStates({completed, completed, completed});
        for (const QString &name : {u"a.mp4"_s, u"a.mov"_s, u"b_converted.mp4"_s})
            QVERIFY2(contentsOf(folder.filePath(name)) == m_clip, qPrintable(name));
        QCOMPARE(outputs().size(), overwrite ? 5 : 6);
        QVERIFY(outputs().contains(u"b_converted_converted.mp4"_s));
    }

    void tenSourcesOfOneNameGetTenOutputs()
    {
        const QDir sources = m_queue->sources();
        for (int i = 0; i < 10; ++i) {
            const QString folder = QString::number(i);
            QVERIFY(sources.mkdir(folder));
            write(sources.filePath(folder + (i % 2 ? u"/clip.mov"_s : u"/clip.mp4"_s)), m_clip);
        }
        QVERIFY(m_queue->drop(sources.path(), 10));
        QVERIFY(m_queue->runBatch());
        verifyStates(QList<JobState::Case>(10, completed));
        QStringList expected{u"clip_converted.mp4"_s};
        for (int i = 2; i <= 10; ++i)
            expected << u"clip_converted_%1.mp4"_s.arg(i);
        expected.sort();
        QCOMPARE(outputs(), expected);
    }

private:
    void addSources(const QStringList &names)
    {
        for (const QString &name : names) {
            write(m_queue->sources().filePath(name), m_clip);
            QVERIFY(m_queue->drop(m_queue->sources().filePath(name), 1));
        }
    }

    void addLongSourceAndAnother()
    {
        const QString path = m_queue->sources().filePath(u"1 long.mp4"_s);
        write(path, m_longClip);
        QVERIFY(m_queue->drop(path, 1));
        addSources({u"2.mp4"_s});
    }

    // Does `action` when the job at `row` begins to be converted.
    void onceConverting(qsizetype row, const std::function<void()> &action)
    {
        onceTrue([this, row] { return m_queue->job(row).state.is(converting); }, action);
    }

    // Does `action` when the first job has got somewhere.
    void onceProgressing(const std::function<void()> &action)
    {
        onceTrue(
            [this] {
                return m_queue->job(0).state.is(converting) && m_queue->job(0).progress > 0.0;
            },
            action);
    }

    void onceTrue(const std::function<bool()> &condition, const std::function<void()> &action)
    {
        connect(m_queue->model().jobModel(), &JobListModel::changed, this,
                [=, hasActed = false]() mutable {
                    if (!hasActed && condition()) {
                        hasActed = true;
                        action();
                    }
                });
    }

    void verifyStates(const QList<JobState::Case> &expected) const
    {
        QCOMPARE(m_queue->model().jobCount(), expected.size());
        for (qsizetype row = 0; row < expected.size(); ++row) {
            const JobState &state = m_queue->job(row).state;
            QVERIFY2(state.is(expected[row]), qPrintable(u"Job %1: %2 %3"_s.arg(row)
                                                             .arg(static_cast<int>(state.kind()))
                                                             .arg(state.message())));
        }
        QVERIFY(!m_queue->model().alertMessage());
    }

    // The names of what stands in the output folder.
    QStringList outputs() const
    {
        return m_queue->outputs().entryList(QDir::Files | QDir::System, QDir::Name);
    }

    static void linkTo(const QString &source, const QString &link, bool isHardLink)
    {
        const QByteArray from = QFile::encodeName(source);
        const QByteArray to = QFile::encodeName(link);
        QCOMPARE((isHardLink ? ::link : ::symlink)(from.constData(), to.constData()), 0);
    }

    QTemporaryDir m_folder;
    QByteArray m_clip;
    QByteArray m_longClip;
    std::optional<Leftovers> m_leftovers;
    std::optional<Queue> m_queue;
};

QUORVALE_TEST(FileFaultsTest)
#include "filefaults_test.moc"
