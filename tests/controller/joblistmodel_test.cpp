// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "controller/joblistmodel.h"
#include "controller/shownjob.h"
#include "model/filepath.h"
#include "support/testclass.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

#include <algorithm>

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

    void showsAJobAndItsProgress()
    {
        m_model->setState(m_jobs[1].id(), JobState::failed(u"because"_s));
        m_model->setProgress(m_jobs[1].id(), 0.25);
        QCOMPARE(show(1, JobListModel::JobRole).value<ShownJob>(), ShownJob(m_model->jobs()[1]));
        QCOMPARE(show(1, JobListModel::ProgressRole), 0.25);
        QCOMPARE(show(1, Qt::DisplayRole), ShownJob(m_model->jobs()[1]).legibleFileName());
        QCOMPARE(m_model->roleNames().value(JobListModel::JobRole), QByteArray("job"));
        QCOMPARE(m_model->roleNames().value(JobListModel::ProgressRole), QByteArray("progress"));
    }

    void aStateTouchesOneRowAndItsJob()
    {
        const QSignalSpy changes(m_model.get(), &JobListModel::dataChanged);
        m_model->setState(m_jobs[2].id(), JobState::failed(u"because"_s));
        QCOMPARE(changes.size(), 1);
        QCOMPARE(changes[0][0].toModelIndex().row(), 2);
        QCOMPARE(changes[0][1].toModelIndex().row(), 2);
        QCOMPARE(changes[0][2].value<QList<int>>(), QList<int>{JobListModel::JobRole});
    }

    void findsTheNextFailedRowAndGoesRound()
    {
        QCOMPARE(m_model->failedRow(0), -1);
        for (const int row : {1, 4})
            m_model->setState(m_jobs[row].id(), JobState::failed(u"because"_s));
        const QList<int> expected{1, 1, 4, 4, 4, 1, 1};
        for (int row = 0; row <= 6; ++row) // below the last one, too
            QCOMPARE(m_model->failedRow(row), expected[row]);
    }

    void knowsWhatCompletedJobsHaveBecome()
    {
        for (qsizetype row = 0; row < 4; ++row)
            m_model->complete(m_jobs[row].id(),
                              {fileUrl("/out/caf\xe9" + QByteArray::number(row)), {}});
        m_model->complete(QUuid::createUuid(), {fileUrl("/out/x"), {}});
        QCOMPARE(m_model->completedCount(), 4);
        for (qsizetype row = 0; row < 4; ++row)
            QCOMPARE(m_model->output(m_jobs[row].id()),
                     std::optional(fileUrl("/out/caf\xe9" + QByteArray::number(row))));
        QCOMPARE(m_model->output(m_jobs[4].id()), std::nullopt);
        m_model->setState(m_jobs[0].id(), JobState::waiting());
        m_model->remove(m_jobs[1].id());
        m_model->removeIf([this](const ConversionJob &job) { return job.id() == m_jobs[2].id(); });
        for (const qsizetype row : {0, 1, 2})
            QCOMPARE(m_model->output(m_jobs[row].id()), std::nullopt);
        QVERIFY(m_model->output(m_jobs[3].id()));
    }

    void remarksOnACompletedJobAsLongAsItIsCompleted()
    {
        const QUuid id = m_jobs[2].id();
        QString announced;
        connect(m_model.get(), &JobListModel::dataChanged, this,
                [&] { announced = show(2, JobListModel::JobRole).value<ShownJob>().message(); });
        m_model->complete(id, {fileUrl("/out/a.mp4"), EarlyEnd{.reached = 6.0, .duration = 20.0}});
        QCOMPARE(announced, u"The source ends early: 0:06 of 0:20."_s);
        m_model->complete(id, {fileUrl("/out/a.mp4"), {}});
        QCOMPARE(announced, QString());
        m_model->complete(id, {fileUrl("/out/a.mp4"), EarlyEnd{.reached = 6.0, .duration = 20.0}});
        m_model->setState(id, JobState::waiting());
        QCOMPARE(announced, QString());
    }

    void keepsAccountThroughEveryKindOfChange()
    {
        const auto isCompleted = [](const ConversionJob &job) {
            return job.state.is(JobState::Case::completed);
        };
        const auto isExact = [&] {
            const auto isQueuedRightly = [&](const ConversionJob &file) {
                return m_model->isQueued(file.source())
                       == std::ranges::any_of(m_model->jobs(), [&](const ConversionJob &job) {
                              return !isCompleted(job) && job.source() == file.source();
                          });
            };
            return m_model->completedCount() == std::ranges::count_if(m_model->jobs(), isCompleted)
                   && std::ranges::all_of(m_jobs, isQueuedRightly);
        };
        for (const int row : {0, 1, 3, 5})
            m_model->setState(m_jobs[row].id(), JobState::completed());
        QCOMPARE(m_model->completedCount(), 4);
        QVERIFY(isExact());
        m_model->setState(m_jobs[5].id(), JobState::completed());
        QCOMPARE(m_model->completedCount(), 4);
        QVERIFY(isExact());
        m_model->setState(m_jobs[1].id(), JobState::waiting());
        QCOMPARE(m_model->completedCount(), 3);
        QVERIFY(isExact());
        m_model->setState(QUuid::createUuid(), JobState::completed());
        m_model->setProgress(m_jobs[1].id(), 1.0);
        QVERIFY(isExact());
        QList<ConversionJob> more = makeJobs(2);
        more[1].state = JobState::completed();
        m_model->append(more);
        QCOMPARE(m_model->completedCount(), 4);
        QVERIFY(isExact());
        m_model->move({0, 3}, 8);
        QVERIFY(isExact());
        m_model->remove(m_jobs[0].id());
        m_model->remove(m_jobs[2].id());
        QCOMPARE(m_model->completedCount(), 3);
        QVERIFY(isExact());
        m_model->removeIf([&](const ConversionJob &job) { return job.id() == m_jobs[3].id(); });
        QCOMPARE(m_model->completedCount(), 2);
        QVERIFY(isExact());
        m_model->removeIf([](const ConversionJob &) { return true; });
        QCOMPARE(m_model->completedCount(), 0);
        QVERIFY(isExact());
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
        QCOMPARE(m_model->indexOf(m_jobs[2].id()), 1);
        QCOMPARE(m_model->indexOf(m_jobs[1].id()), -1);
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

    void movesEverySelectionToEveryPlace()
    {
        const QList<QUuid> start = idsOf(*m_model);
        for (unsigned selection = 0; selection < 64; ++selection) {
            QList<int> rows;
            for (int row = 0; row < 6; ++row) {
                if ((selection >> row & 1U) != 0)
                    rows << row;
            }
            for (int destination = 0; destination <= 6; ++destination) {
                JobListModel model;
                const Tester tester(&model, Tester::FailureReportingMode::QtTest);
                model.append(m_jobs);
                QList<QPersistentModelIndex> views;
                for (int row = 0; row < 6; ++row)
                    views << QPersistentModelIndex(model.index(row));
                const QSignalSpy changes(&model, &JobListModel::changed);
                const QSignalSpy moves(&model, &JobListModel::rowsMoved);
                model.move(rows, destination);

                QList<QUuid> expected;
                for (int row = 0; row <= 6; ++row) {
                    if (row == destination) {
                        for (const int moved : std::as_const(rows))
                            expected << start[moved];
                    }
                    if (row < 6 && !rows.contains(row))
                        expected << start[row];
                }
                QCOMPARE(idsOf(model), expected);
                QCOMPARE(changes.size(), expected == start ? 0 : 1);
                QCOMPARE(moves.isEmpty(), expected == start);
                for (int row = 0; row < 6; ++row) {
                    QCOMPARE(views[row].row(), expected.indexOf(start[row]));
                    QVERIFY(model.rowOf(start[row]) == views[row].row());
                }
            }
        }
    }

    void neighboursMoveTogether()
    {
        const QSignalSpy moves(m_model.get(), &JobListModel::rowsMoved);
        m_model->move({1, 2, 3}, 6);
        QCOMPARE(moves.size(), 1);
        m_model->move({0, 1, 4, 5}, 3);
        QCOMPARE(moves.size(), 3);
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
        QVERIFY(!m_model->data({}, JobListModel::JobRole).isValid());
        QVERIFY(!m_model->data(m_model->index(0), Qt::UserRole + 100).isValid());
    }

private:
    QVariant show(int row, int role) const { return m_model->data(m_model->index(row), role); }

    std::unique_ptr<JobListModel> m_model;
    std::unique_ptr<Tester> m_tester;
    QList<ConversionJob> m_jobs;
};

QUORVALE_TEST(JobListModelTest)
#include "joblistmodel_test.moc"
