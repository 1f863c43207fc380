// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "support/programbench.h"
#include "support/rowdrag.h"
#include "support/testclass.h"
#include "support/videofile.h"

#include <QTest>

using namespace quorvale::test;
using namespace Qt::StringLiterals;

// The order of the queue as the mouse changes it.
class ReorderingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(m_desktop.start());
        for (const QString &name : {u"a.mp4"_s, u"b.mp4"_s, u"c.mp4"_s})
            QVERIFY(makeLongVideo(m_folder.filePath(name), 1));
        QVERIFY(makeLongVideo(m_longFolder.filePath(u"long.mp4"_s), 3600));
    }

    void init()
    {
        m_bench = std::make_unique<ProgramBench>(m_desktop);
        QVERIFY(m_bench->start());
        QVERIFY(m_bench->drop({m_folder.path()}));
        QVERIFY(window().waitForRows({u"a.mp4"_s, u"b.mp4"_s, u"c.mp4"_s}));
    }

    void cleanup() { m_bench.reset(); }

    void aDraggedRowTakesThePlaceOfAnother_data()
    {
        QTest::addColumn<QString>("row");
        QTest::addColumn<QString>("other");
        QTest::addColumn<QStringList>("order");
        QTest::newRow("last to first")
            << u"c.mp4"_s << u"a.mp4"_s << QStringList{u"c.mp4"_s, u"a.mp4"_s, u"b.mp4"_s};
        QTest::newRow("first to last")
            << u"a.mp4"_s << u"c.mp4"_s << QStringList{u"b.mp4"_s, u"c.mp4"_s, u"a.mp4"_s};
        QTest::newRow("to its neighbour")
            << u"a.mp4"_s << u"b.mp4"_s << QStringList{u"b.mp4"_s, u"a.mp4"_s, u"c.mp4"_s};
    }
    void aDraggedRowTakesThePlaceOfAnother()
    {
        QFETCH(const QString, row);
        QFETCH(const QString, other);
        QFETCH(const QStringList, order);
        RowDrag drag(m_desktop.display(), window());
        QVERIFY(drag.dragOver(row, other));
        QVERIFY(drag.release());
        QVERIFY(window().waitForRows(order));
    }

    void theNewOrderIsTheOrderOfConversion()
    {
        RowDrag drag(m_desktop.display(), window());
        QVERIFY(drag.dragOver(u"c.mp4"_s, u"a.mp4"_s));
        QVERIFY(drag.release());
        QVERIFY(window().waitForRows({u"c.mp4"_s, u"a.mp4"_s, u"b.mp4"_s}));
        QVERIFY(window().chooseOutputFolder(m_bench->outputFolder()));
        QVERIFY(window().convert(3));
        QVERIFY(m_bench->waitForOutputs(
            {u"a_converted.mp4"_s, u"b_converted.mp4"_s, u"c_converted.mp4"_s}));
        QCOMPARE(m_bench->outputsByTime(),
                 (QStringList{u"c_converted.mp4"_s, u"a_converted.mp4"_s, u"b_converted.mp4"_s}));
    }

    void escapePutsTheRowBack()
    {
        RowDrag drag(m_desktop.display(), window());
        QVERIFY(drag.dragOver(u"c.mp4"_s, u"a.mp4"_s));
        QVERIFY(window().press(u"Escape"_s));
        QVERIFY(drag.release());
        verifyUnchanged({u"a.mp4"_s, u"b.mp4"_s, u"c.mp4"_s});

        // It is no obstacle to the next drag.
        QVERIFY(drag.dragOver(u"c.mp4"_s, u"a.mp4"_s));
        QVERIFY(drag.release());
        QVERIFY(window().waitForRows({u"c.mp4"_s, u"a.mp4"_s, u"b.mp4"_s}));
    }

    void aRowThatIsDraggedToItselfStays()
    {
        RowDrag drag(m_desktop.display(), window());
        QVERIFY(drag.dragOver(u"b.mp4"_s, u"b.mp4"_s));
        QVERIFY(drag.release());
        verifyUnchanged({u"a.mp4"_s, u"b.mp4"_s, u"c.mp4"_s});
    }

    void aDragDuringABatchChangesNothing()
    {
        QVERIFY(m_bench->drop({m_longFolder.path()}));
        QVERIFY(window().waitForRows({u"a.mp4"_s, u"b.mp4"_s, u"c.mp4"_s, u"long.mp4"_s}));
        RowDrag drag(m_desktop.display(), window());
        QVERIFY(drag.dragOver(u"long.mp4"_s, u"a.mp4"_s));
        QVERIFY(drag.release());
        const QStringList order{u"long.mp4"_s, u"a.mp4"_s, u"b.mp4"_s, u"c.mp4"_s};
        QVERIFY(window().waitForRows(order));
        QVERIFY(window().chooseOutputFolder(m_bench->outputFolder()));
        QVERIFY(window().convert(4));
        QVERIFY(window().waitForDescription(u"long.mp4"_s, u"Converting"_s));

        QVERIFY(drag.dragOver(u"c.mp4"_s, u"a.mp4"_s));
        QVERIFY(drag.release());
        QVERIFY(window().clickInRow(u"b.mp4"_s, u"Move up"_s));
        verifyUnchanged(order);
        QVERIFY(window().description(u"long.mp4"_s).contains(u"Converting"_s));
    }

private:
    const WindowDriver &window() const { return m_bench->window(); }

    void verifyUnchanged(const QStringList &order)
    {
        QTest::qWait(500);
        QCOMPARE(window().rowNames(), order);
    }

    VirtualDesktop m_desktop;
    QTemporaryDir m_folder;
    QTemporaryDir m_longFolder;
    std::unique_ptr<ProgramBench> m_bench;
};

QUORVALE_TEST(ReorderingTest)
#include "reordering_test.moc"
