// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "model/conversionjob.h"
#include "support/testclass.h"

#include <QSet>
#include <QTest>

#include <limits>

using namespace quorvale;
using namespace Qt::StringLiterals;

namespace {

const QUrl clip = QUrl::fromLocalFile(u"/videos/clip.mkv"_s);

} // namespace

class ConversionJobTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aNewJobWaitsAtTheBeginning()
    {
        const ConversionJob job(clip);
        QVERIFY(!job.id().isNull());
        QCOMPARE(job.source(), clip);
        QCOMPARE(job.progress, 0.0);
        QVERIFY(job.state == JobState::waiting());
    }

    void twoJobsForOneFileAreTwoJobs()
    {
        const ConversionJob a(clip);
        const ConversionJob b(clip);
        QVERIFY(a.id() != b.id());
        QVERIFY(a != b);
        const QList<ConversionJob> list{a, b};
        QCOMPARE(list[0].id(), a.id());
        QCOMPARE(list[1].id(), b.id());
    }

    void everyIdIsRandom()
    {
        QSet<QUuid> ids;
        QByteArray everSet(16, '\0');
        QByteArray everClear(16, '\0');
        for (int i = 0; i < 1000; ++i) {
            const QUuid id = ConversionJob(clip).id();
            QCOMPARE(id.version(), QUuid::Random);
            QCOMPARE(id.variant(), QUuid::DCE);
            ids << id;
            const QByteArray bytes = id.toRfc4122();
            for (int byte = 0; byte < 16; ++byte) {
                everSet[byte] = static_cast<char>(everSet[byte] | bytes[byte]);
                everClear[byte] = static_cast<char>(everClear[byte] | ~bytes[byte]);
            }
        }
        QCOMPARE(ids.size(), 1000);
        // All bits but the four of the version and the two of the variant.
        QCOMPARE(everSet.toHex(), QByteArray("ffffffffffff4fffbfffffffffffffff"));
        QCOMPARE(everClear.toHex(), QByteArray("ffffffffffffbfff7fffffffffffffff"));
    }

    void aCopyDiffersOnceItsProgressDoes()
    {
        const ConversionJob job(clip);
        ConversionJob copy = job;
        QVERIFY(copy == job);
        copy.progress = 0.25;
        QVERIFY(copy != job);
        copy.progress = 0.0;
        QVERIFY(copy == job);
        copy.progress = std::numeric_limits<double>::denorm_min();
        QVERIFY(copy != job);
    }

    void aCopyDiffersOnceItsStateDoes()
    {
        const ConversionJob job(clip);
        ConversionJob copy = job;
        copy.state = JobState::cancelled();
        QVERIFY(copy != job);
    }

    void notANumberEqualsNothing()
    {
        ConversionJob job(clip);
        job.progress = std::numeric_limits<double>::quiet_NaN();
        const ConversionJob copy = job;
        QVERIFY(copy != job);
    }

    void statesAreEqualByCaseAndMessage()
    {
        QVERIFY(JobState::waiting() == JobState::waiting());
        QVERIFY(JobState::failed(u"no"_s) == JobState::failed(u"no"_s));
        QVERIFY(JobState::failed(u"no"_s) != JobState::failed(u"yes"_s));
        QVERIFY(JobState::failed(u"no"_s) != JobState::failed(u"No"_s));
        QVERIFY(JobState::failed(QString()) != JobState::cancelled());
        QVERIFY(JobState::failed(QString()) != JobState::waiting());
        QVERIFY(JobState::completed() != JobState::converting());
    }

    void messagesAreComparedByCanonicalEquivalence()
    {
        const auto composed = JobState::failed(u"caf\u00e9"_s);
        const auto decomposed = JobState::failed(u"cafe\u0301"_s);
        QVERIFY(composed == decomposed);
        QVERIFY(composed != JobState::failed(u"cafe"_s));
        // Merely compatible is not equivalent: the ligature fi is not f and i.
        QVERIFY(JobState::failed(u"\ufb01le"_s) != JobState::failed(u"file"_s));
    }
};

QUORVALE_TEST(ConversionJobTest)
#include "conversionjob_test.moc"
