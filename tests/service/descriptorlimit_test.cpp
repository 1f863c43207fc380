// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "service/descriptorlimit.h"
#include "support/testclass.h"

#include <QTest>

#include <sys/wait.h>
#include <unistd.h>

using namespace quorvale;

class DescriptorLimitTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isRaisedAsFarAsItGoes_data()
    {
        QTest::addColumn<rlim_t>("soft");
        QTest::addColumn<bool>("isRaised");
        QTest::newRow("below the hard one") << rlim_t(64) << true;
        QTest::newRow("at the hard one") << rlim_t(128) << false;
    }
    void isRaisedAsFarAsItGoes()
    {
        QFETCH(const rlim_t, soft);
        QFETCH(const bool, isRaised);
        // In a child, because it cannot be undone.
        const pid_t child = ::fork();
        if (child == 0) {
            const rlimit limit{soft, 128};
            ::setrlimit(RLIMIT_NOFILE, &limit);
            raiseDescriptorLimit();
            rlimit now{};
            ::getrlimit(RLIMIT_NOFILE, &now);
            const auto atStart = descriptorLimitOfStart();
            const bool isKnown = atStart && atStart->rlim_cur == soft && atStart->rlim_max == 128;
            ::_exit(now.rlim_cur == 128 && atStart.has_value() == isRaised && isKnown == isRaised
                        ? EXIT_SUCCESS
                        : EXIT_FAILURE);
        }
        QVERIFY(child > 0);
        int status = -1;
        QCOMPARE(::waitpid(child, &status, 0), child);
        QCOMPARE(status, EXIT_SUCCESS);
    }
};

QUORVALE_TEST(DescriptorLimitTest)
#include "descriptorlimit_test.moc"
