// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "controller/joblistmodel.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

using namespace quorvale;
using namespace Qt::StringLiterals;

using Tester = QAbstractItemModelTester;

namespace {

QList<ConversionJob> makeJobs(int count)
{
    QList<ConversionJob> jobs;
    for (int i = 0; i < count; ++i)
        jobs << ConversionJob(QUrl::fromLocalFile(u"/videos/Trip/clip%1.mkv"_s.arg(i)));
    return jobs;
}

QList<QUuid> idsOf(const JobListModel &model)
{
    QList<QUuid> ids;
    for (const ConversionJob &job : model.jobs())
        ids << job.id();
    return ids;
}

} // namespace

class JobListModelTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_model = std::make_unique<JobListModel>();
        m_tester = std::make_unique<Tester>(m_model.get(), Tester::FailureReportingMode::QtTest);
        m_jobs = makeJobs(6);
        m_model->append(m_jobs);
    }

    void cleanup()
    {
        m_tester.reset();
        m_model.reset();
    }

    void showsAJobInItsRoles()
    {
        QCOMPARE(show(0, JobListModel::FileNameRole), u"clip0.mkv"_s);
        QCOMPARE(show(0, JobListModel::FolderNameRole), u"Trip"_s);
        QCOMPARE(show(0, JobListModel::StateWordRole), u"Ready"_s);
        QCOMPARE(show(0, JobListModel::ProgressRole), 0.0);
        QCOMPARE(show(0, JobListModel::FailureRole), QString());
        QCOMPARE(show(0, JobListModel::IdRole), QVariant::fromValue(m_jobs[0].id()));
    }

    void saysEveryStateInAWord()
    {
        const QUuid id = m_jobs[0].id();
        const auto word = [&](const JobState &state) {
            m_model->setState(id, state);
            return show(0, JobListModel::StateWordRole).toString();
        };
        QCOMPARE(word(JobState::waiting()), u"Ready"_s);
        QCOMPARE(word(JobState::converting()), u"Converting"_s);
        QCOMPARE(word(JobState::completed()), u"Complete"_s);
        QCOMPARE(word(JobState::cancelled()), u"Cancelled"_s);
        QCOMPARE(word(JobState::failed(u"because"_s)), u"Failed"_s);
        QCOMPARE(show(0, JobListModel::FailureRole), u"because"_s);
    }

    void aProgressValueTouchesOneRowAndOneRole()
    {
        const QSignalSpy changes(m_model.get(), &JobListModel::dataChanged);
        const QSignalSpy resets(m_model.get(), &JobListModel::modelReset);
        m_model->setProgress(m_jobs[3].id(), 0.5);
        QCOMPARE(changes.size(), 1);
        QCOMPARE(changes[0][0].toModelIndex().row(), 3);
        QCOMPARE(changes[0][1].toModelIndex().row(), 3);
        QCOMPARE(changes[0][2].value<QList<int>>(), QList<int>{JobListModel::ProgressRole});
        QCOMPARE(resets.size(), 0);
    }

    void appendingKeepsWhatIsThere()
    {
        const QList<ConversionJob> more = makeJobs(2);
        const QSignalSpy inserts(m_model.get(), &JobListModel::rowsInserted);
        m_model->append(more);
        QCOMPARE(m_model->jobs(), m_jobs + more);
        QCOMPARE(inserts.size(), 1);
    }

    void appendingNothingIsAChangeWithoutRows()
    {
        const QSignalSpy inserts(m_model.get(), &JobListModel::rowsInserted);
        const QSignalSpy changes(m_model.get(), &JobListModel::changed);
        m_model->append({});
        QCOMPARE(inserts.size(), 0);
        QCOMPARE(changes.size(), 1);
    }

    void removesRunsOfRows()
    {
        QSet<QUuid> unwanted{m_jobs[0].id(), m_jobs[2].id(), m_jobs[3].id(), m_jobs[5].id()};
        const QSignalSpy changes(m_model.get(), &JobListModel::changed);
        m_model->removeIf([&](const ConversionJob &job) { return unwanted.contains(job.id()); });
        QCOMPARE(idsOf(*m_model), (QList<QUuid>{m_jobs[1].id(), m_jobs[4].id()}));
        QCOMPARE(changes.size(), 1);
    }

    void removesAllAndNone()
    {
        m_model->removeIf([](const ConversionJob &) { return false; });
        QCOMPARE(m_model->jobs(), m_jobs);
        m_model->removeIf([](const ConversionJob &) { return true; });
        QVERIFY(m_model->jobs().isEmpty());
    }

    void findsJobsAfterEveryKindOfChange()
    {
        m_model->remove(m_jobs[1].id());
        QVERIFY(m_model->rowOf(m_jobs[2].id()) == 1);
        QVERIFY(!m_model->rowOf(m_jobs[1].id()));
        m_model->move(0, 4);
        QVERIFY(m_model->rowOf(m_jobs[0].id()) == 4);
        QVERIFY(m_model->rowOf(m_jobs[2].id()) == 0);
        m_model->append(makeJobs(1));
        QVERIFY(m_model->rowOf(m_model->jobs().last().id()) == 5);
    }

    void movesInBothDirections_data()
    {
        QTest::addColumn<int>("from");
        QTest::addColumn<int>("to");
        for (int from = 0; from < 6; ++from) {
            for (int to = 0; to < 6; ++to) {
                if (from != to)
                    QTest::addRow("%d to %d", from, to) << from << to;
            }
        }
    }
    void movesInBothDirections()
    {
        QFETCH(const int, from);
        QFETCH(const int, to);
        QList<ConversionJob> expected = m_jobs;
        expected.move(from, to);
        const QPersistentModelIndex moved = m_model->index(from);
        m_model->move(from, to);
        QCOMPARE(m_model->jobs(), expected);
        QCOMPARE(moved.row(), to);
    }

    void unknownIdsAreIgnored()
    {
        const QUuid unknown = QUuid::createUuid();
        const QSignalSpy changes(m_model.get(), &JobListModel::changed);
        m_model->remove(unknown);
        m_model->setState(unknown, JobState::completed());
        m_model->setProgress(unknown, 1.0);
        QVERIFY(!m_model->find(unknown));
        QCOMPARE(m_model->jobs(), m_jobs);
        QCOMPARE(changes.size(), 0);
    }

    void rowsThatAreNotThereShowNothing()
    {
        QVERIFY(!m_model->data({}, JobListModel::FileNameRole).isValid());
        QVERIFY(!m_model->data(m_model->index(0), Qt::UserRole + 100).isValid());
    }

private:
    QVariant show(int row, int role) const { return m_model->data(m_model->index(row), role); }

    std::unique_ptr<JobListModel> m_model;
    std::unique_ptr<Tester> m_tester;
    QList<ConversionJob> m_jobs;
};

QTEST_APPLESS_MAIN(JobListModelTest)
#include "joblistmodel_test.moc"
