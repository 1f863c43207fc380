// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "service/worker.h"
#include "support/patience.h"
#include "support/testclass.h"

#include <QEventLoop>
#include <QTest>
#include <QThread>
#include <QTimer>

#include <atomic>
#include <numeric>
#include <vector>

using namespace quorvale;
using namespace quorvale::test;

class WorkerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void doesOneAfterAnotherOnAThreadOfItsOwn()
    {
        std::vector<int> done;
        {
            Worker worker;
            for (int i = 0; i < 100; ++i) {
                worker.post([&done, i, thisThread = QThread::currentThreadId()] {
                    if (QThread::currentThreadId() != thisThread)
                        done.push_back(i);
                });
            }
        } // which waits until everything is done
        std::vector<int> all(100);
        std::iota(all.begin(), all.end(), 0);
        QCOMPARE(done, all);
    }

    void aTaskMayRunALoopWhileOthersCome()
    {
        std::vector<int> done;
        {
            Worker worker;
            worker.post([&] {
                QEventLoop loop;
                QTimer::singleShot(20, &loop, &QEventLoop::quit);
                loop.exec();
                done.push_back(1);
            });
            worker.post([&] { done.push_back(2); });
        }
        QCOMPARE(done, (std::vector{1, 2}));
    }

    void whatATaskLeavesBehindLivesOn()
    {
        std::atomic<bool> isDone = false;
        Worker worker;
        worker.post([&] {
            auto *timer = new QTimer;
            timer->callOnTimeout([&isDone, timer] {
                timer->deleteLater();
                isDone = true;
            });
            timer->start(1);
        });
        QTRY_VERIFY_WITH_TIMEOUT(isDone, patience);
    }
};

QUORVALE_TEST(WorkerTest)
#include "worker_test.moc"
