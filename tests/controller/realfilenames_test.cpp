// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "controller/converterviewmodel.h"
#include "controller/shownjob.h"
#include "model/filepath.h"
#include "support/clips.h"
#include "support/patience.h"
#include "support/queue.h"
#include "support/testclass.h"
#include "support/toolrun.h"

#include <QTest>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

using namespace quorvale;
using namespace quorvale::test;
using namespace Qt::StringLiterals;

namespace {

namespace fs = std::filesystem;

// What a file name's bytes mean is nobody's business on the way from a source to its output; so
// these tests name, make and read files without Qt.
using Names = std::vector<std::string>;

constexpr std::size_t longestName = 255; // bytes, on the file systems of Linux
const std::string outputEnding = "_converted.mp4";

// The characters are written out as bytes to be independent of editors, which normalise.
const std::string decomposedAccent = "cafe\xCC\x81";
const std::string composedAccent = "caf\xC3\xA9";

Names baseNames()
{
    return {
        "with some spaces",
        " a space at either end ",
        "single 'quotes'",
        "double \"quotes\"",
        "`backquotes` $HOME $(true) *; & | <>",
        "line\nfeed",
        "tab\tulator",
        "percent%20encoded",
        "sequence%03d",
        "fragment#1",
        "query?a=b",
        "-y",
        "--",
        "back\\slash",
        "a:colon",
        "file:",
        "two..dots.mkv",
        "[0-9]{a,b}",
        "\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D",           // Hebrew
        "\xD9\x85\xD8\xB1\xD8\xAD\xD8\xA8\xD8\xA7 1", // Arabic
        "\xE2\x80\xAEoverridden\xE2\x80\xAC",         // with a right-to-left override
        "\xF0\x9F\x8E\xAC\xF0\x9F\x91\xA9\xE2\x80\x8D\xF0\x9F\x92\xBB", // emoji, one of them joined
        decomposedAccent,
        composedAccent,
        "caf\xE9 in Latin 1",
        "caf\xE8 in Latin 1", // to be told from the one above
        "no \xFF\xFE\xC0\xED\xA0\x80 text",
        "\xEF\xBF\xBD as a character",
        std::string(200, 'n'),
        std::string(longestName - outputEnding.size(), 'm'),
    };
}

fs::path fsPath(const QDir &folder)
{
    return fs::path(folder.path().toStdString());
}

Names sorted(Names names)
{
    std::ranges::sort(names);
    return names;
}

Names namesIn(const QDir &folder)
{
    Names names;
    for (const fs::directory_entry &entry : fs::directory_iterator(fsPath(folder)))
        names.push_back(entry.path().filename().native());
    return sorted(names);
}

// For the log, with every byte beyond ASCII as a number.
QByteArray shown(const Names &names)
{
    QByteArray text;
    for (const std::string &name : names)
        text += QByteArray::fromStdString(name).toPercentEncoding(" '\"#?\\:") + '\n';
    return text;
}

} // namespace

class RealFileNamesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        useMachineTools();
        m_clip = makeClip(u"silent.mp4"_s, QDir(m_folder.path()));
    }

    void everyNameReachesTheOutputByteForByte()
    {
        Queue queue(Tools::machine);
        Names expected;
        for (const std::string &baseName : baseNames()) {
            takeSource(queue, baseName + ".mp4");
            expected.push_back(baseName + outputEnding);
        }
        const Names sources = namesIn(queue.sources());
        const auto count = static_cast<qsizetype>(sources.size());
        QVERIFY(queue.drop(queue.sources().path(), count));

        QVERIFY(queue.runBatch());

        for (const ConversionJob &job : queue.model().jobs())
            QVERIFY(isConverted(job));
        QCOMPARE(queue.model().completedCount(), count);
        QCOMPARE(shown(namesIn(queue.outputs())), shown(sorted(expected)));
        QCOMPARE(shown(namesIn(queue.sources())), shown(sources));
    }

    void aDroppedFileKeepsItsName()
    {
        Queue queue(Tools::machine);
        const std::string baseName = "100%25 #1? " + decomposedAccent + " \xE9";
        takeSource(queue, baseName + ".mp4");
        const std::string path = fsPath(queue.sources()) / (baseName + ".mp4");
        // As a file manager writes it.
        const QUrl url =
            QUrl::fromEncoded("file://" + QByteArray::fromStdString(path).toPercentEncoding("/"));
        ConverterViewModel &controller = queue.model();
        controller.handleDrop({url, url});
        QTRY_COMPARE_WITH_TIMEOUT(controller.jobCount(), 1, patience);
        QCOMPARE(ShownJob(controller.jobs().first()).fileName(),
                 QString::fromStdString("100%25 #1? " + decomposedAccent + " \uFFFD.mp4"));

        QVERIFY(queue.runBatch());

        QVERIFY(isConverted(queue.job(0)));
        QCOMPARE(shown(namesIn(queue.outputs())), shown({baseName + outputEnding}));
    }

    void anOutputFolderKeepsItsName()
    {
        Queue queue(Tools::machine);
        const fs::path folder = fsPath(queue.outputs()) / "caf\xE9";
        fs::create_directory(folder);
        takeSource(queue, "a.mp4");
        QVERIFY(queue.drop(queue.sources().path(), 1));
        queue.choose(fileUrl(QByteArray::fromStdString(folder)));

        QVERIFY(queue.runBatch());
        queue.model().requeue(queue.model().jobs().first().id());
        QVERIFY(queue.runBatch());

        QVERIFY(isConverted(queue.job(0)));
        Names outputs;
        for (const fs::directory_entry &entry : fs::directory_iterator(folder))
            outputs.push_back(entry.path().filename());
        QCOMPARE(shown(sorted(outputs)), shown({"a_converted.mp4", "a_converted_2.mp4"}));
        QCOMPARE(shown(namesIn(queue.outputs())), shown({"caf\xE9"}));
    }

    void aNameThatGrowsTooLongFailsAndTheNextJobCompletes()
    {
        Queue queue(Tools::machine);
        const std::string tooLong(longestName - outputEnding.size() + 1, 'a');
        const std::string longest(longestName - std::string(".mp4").size(), 'b');
        for (const std::string &baseName : {tooLong, longest, std::string("c")})
            takeSource(queue, baseName + ".mp4");
        QVERIFY(queue.drop(queue.sources().path(), 3));

        QVERIFY(queue.runBatch());

        for (const qsizetype row : {0, 1}) {
            const JobState state = queue.job(row).state;
            QVERIFY(state.is(JobState::Case::failed));
            QVERIFY2(state.message().contains(u"too long"_s), qPrintable(state.message()));
        }
        QVERIFY(isConverted(queue.job(2)));
        QCOMPARE(shown(namesIn(queue.outputs())), shown({"c" + outputEnding}));
    }

private:
    void takeSource(const Queue &queue, const std::string &name) const
    {
        fs::copy_file(m_clip.toStdString(), fsPath(queue.sources()) / name);
    }

    QTemporaryDir m_folder;
    QString m_clip;
};

QUORVALE_TEST(RealFileNamesTest)
#include "realfilenames_test.moc"
