// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "support/programbench.h"
#include "support/testclass.h"

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
        for (const QString &name : {u"a.mp4"_s, u"b.mp4"_s, u"c.mp4"_s})
            QVERIFY(QFile(m_folder.filePath(name)).open(QIODevice::WriteOnly));
    }

    void init()
    {
        m_bench = std::make_unique<ProgramBench>(m_desktop);
        QVERIFY(m_bench->start());
        QVERIFY(m_bench->drop({m_folder.path()}));
        QVERIFY(window().waitForRows({u"a.mp4"_s, u"b.mp4"_s, u"c.mp4"_s}));
    }

    void cleanup() { m_bench.reset(); }

    void aDraggedRowTakesThePlaceOfAnother()
    {
        QVERIFY(window().dragRow(u"c.mp4"_s, u"a.mp4"_s));
        QVERIFY(window().releaseRow());
        QVERIFY(window().waitForRows({u"c.mp4"_s, u"a.mp4"_s, u"b.mp4"_s}));
        QVERIFY(window().dragRow(u"c.mp4"_s, u"a.mp4"_s));
        QVERIFY(window().releaseRow());
        QVERIFY(window().waitForRows({u"a.mp4"_s, u"c.mp4"_s, u"b.mp4"_s}));
    }

private:
    const WindowDriver &window() const { return m_bench->window(); }

    VirtualDesktop m_desktop;
    QTemporaryDir m_folder;
    std::unique_ptr<ProgramBench> m_bench;
};

QUORVALE_TEST(ReorderingTest)
#include "reordering_test.moc"
