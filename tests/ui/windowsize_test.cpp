// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "support/patience.h"
#include "support/programbench.h"
#include "support/testclass.h"
#include "support/virtualdesktop.h"

#include <QTest>

using namespace quorvale::test;
using namespace Qt::StringLiterals;

// How large the window opens and how small the user can make it.
class WindowSizeTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(m_desktop.start());
        m_bench = std::make_unique<ProgramBench>(m_desktop);
        QVERIFY(m_bench->start());
    }

    void cleanupTestCase() { m_bench.reset(); }

    void opensAtItsLeastSize() { QCOMPARE(size(), least); }

    void cannotBeMadeSmaller_data()
    {
        QTest::addColumn<QPoint>("offset");
        QTest::newRow("narrower") << QPoint(-300, 0);
        QTest::newRow("lower") << QPoint(0, -300);
        QTest::newRow("both") << QPoint(-400, -300);
        QTest::newRow("by little") << QPoint(-10, -10);
    }
    void cannotBeMadeSmaller()
    {
        QFETCH(const QPoint, offset);
        QVERIFY(m_bench->window().resizeBy(offset));
        // However late the window manager is.
        for (int i = 0; i < 20; ++i) {
            QTest::qWait(50);
            QCOMPARE(size(), least);
        }
    }

    // Last, because the window stays as it is then.
    void canBeMadeLarger()
    {
        const QPoint offset(60, 40);
        QVERIFY(m_bench->window().resizeBy(offset));
        const QSize large = least + QSize(offset.x(), offset.y());
        QTRY_COMPARE_WITH_TIMEOUT(size(), large, patience);
        QCOMPARE(m_bench->run().complaints(), QByteArray());
    }

private:
    QSize size() const
    {
        return m_desktop.display().sizeOf(m_bench->window().window()).value_or(QSize());
    }

    const QSize least = QSize(960, 640);
    VirtualDesktop m_desktop;
    std::unique_ptr<ProgramBench> m_bench;
};

QUORVALE_TEST(WindowSizeTest)
#include "windowsize_test.moc"
