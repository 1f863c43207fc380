// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "controller/failurenotice.h"
#include "controller/joblistmodel.h"
#include "support/testclass.h"

#include <QSignalSpy>
#include <QTest>

using namespace quorvale;
using namespace Qt::StringLiterals;

class FailureNoticeTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_jobs = std::make_unique<JobListModel>();
        m_notice = std::make_unique<FailureNotice>(*m_jobs);
    }

    void countsWhatIsInTheListNow()
    {
        QCOMPARE(m_notice->text(), QString());
        append(1);
        QCOMPARE(m_notice->text(), QString());
        fail(0);
        QCOMPARE(m_notice->text(), u"1 of 1 video failed"_s);
        append(42);
        fail(7);
        fail(42);
        fail(42); // again, at once
        QCOMPARE(m_notice->text(), u"3 of 43 videos failed"_s);
        m_jobs->setState(id(7), JobState::waiting());
        QCOMPARE(m_notice->text(), u"2 of 43 videos failed"_s);
        m_jobs->complete(id(42), {});
        QCOMPARE(m_notice->text(), u"1 of 43 videos failed"_s);
        m_jobs->remove(id(0));
        QCOMPARE(m_notice->text(), QString());
        for (int row = 0; row < m_jobs->rowCount(); row += 3)
            fail(row);
        QCOMPARE(m_notice->text(), u"14 of 42 videos failed"_s);
        m_jobs->removeIf(hasFailed);
        QCOMPARE(m_notice->text(), QString());
    }

    void isReadUntilOneMoreFails()
    {
        append(9);
        fail(0);
        fail(1);
        m_notice->dismiss();
        QCOMPARE(m_notice->text(), QString());
        m_jobs->remove(id(8));
        QCOMPARE(m_notice->text(), QString());
        fail(2);
        QCOMPARE(m_notice->text(), u"3 of 8 videos failed"_s);
        m_notice->dismiss();
        // And the same once more.
        m_jobs->setState(id(1), JobState::converting());
        QCOMPARE(m_notice->text(), QString());
        fail(1);
        QCOMPARE(m_notice->text(), u"3 of 8 videos failed"_s);
    }

    void saysSoOnlyWhenItIsAnother()
    {
        append(2);
        const QSignalSpy changes(m_notice.get(), &FailureNotice::changed);
        for (const double progress : {0.1, 0.2, 0.3})
            m_jobs->setProgress(id(0), progress);
        m_jobs->setState(id(1), JobState::cancelled());
        QCOMPARE(changes.size(), 0);
        fail(0);
        QCOMPARE(changes.size(), 1);
    }

private:
    QUuid id(int row) const { return m_jobs->jobs()[row].id(); }
    void fail(int row) { m_jobs->setState(id(row), JobState::failed(u"because"_s)); }

    void append(int count)
    {
        QList<ConversionJob> jobs;
        for (int i = 0; i < count; ++i)
            jobs << ConversionJob(QUrl::fromLocalFile(u"/in/clip%1.mkv"_s.arg(i)));
        m_jobs->append(jobs);
    }

    std::unique_ptr<JobListModel> m_jobs;
    std::unique_ptr<FailureNotice> m_notice;
};

QUORVALE_TEST(FailureNoticeTest)
#include "failurenotice_test.moc"
