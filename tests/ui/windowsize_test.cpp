// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "support/childofthetest.h"
#include "support/patience.h"
#include "support/programbench.h"
#include "support/testclass.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>

using namespace quorvale::test;
using namespace Qt::StringLiterals;

// How large the window opens and how small the user can make it.
class WindowSizeTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
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
        QVERIFY(resizeBy(offset));
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
        QVERIFY(resizeBy(offset));
        const QSize large = least + QSize(offset.x(), offset.y());
        QTRY_COMPARE_WITH_TIMEOUT(size(), large, patience);
        QCOMPARE(m_bench->run().complaints(), QByteArray());
    }

    // The resolution of an X11 screen is what Large Text changes there.
    void isFilledWhenTheResolutionChanges()
    {
        const QTemporaryDir folder;
        const QString settings = folder.filePath(u"settings"_s);
        const auto set = [&settings](int dotsPerInch) {
            QFile file(settings);
            return file.open(QIODevice::WriteOnly)
                   && file.write("Xft/DPI " + QByteArray::number(dotsPerInch * 1024) + '\n') > 0;
        };
        QVERIFY(set(120));
        ChildOfTheTest daemon;
        daemon.setProcessEnvironment(m_desktop.display().environment());
        daemon.start(u"xsettingsd"_s, {u"-c"_s, settings});
        QVERIFY(daemon.waitForStarted());
        m_bench.reset();
        m_bench = std::make_unique<ProgramBench>(m_desktop);
        QVERIFY(m_bench->start());
        const QSize large = least * 1.25;
        QTRY_COMPARE_WITH_TIMEOUT(size(), large, patience);
        QVERIFY(set(96));
        QCOMPARE(::kill(pid_t(daemon.processId()), SIGHUP), 0);
        const auto button = m_bench->window().waitFor(
            AccessibleItem::named(AccessibleItem::Role::button, u"Add Videos"_s));
        QVERIFY(button);
        const auto rightMargin = [&] {
            return m_desktop.display().areaOf(m_bench->window().window()).right()
                   - button->extents().right();
        };
        QTRY_COMPARE_WITH_TIMEOUT(rightMargin(), 26, patience);
        QCOMPARE(size(), large);
        QCOMPARE(m_bench->run().complaints(), QByteArray());
    }

private:
    QSize size() const { return m_desktop.display().areaOf(m_bench->window().window()).size(); }

    // Drags the window's lower right corner, as far as the window lets it.
    bool resizeBy(const QPoint &offset) const
    {
        const VirtualDisplay &display = m_desktop.display();
        const QPoint start =
            display.areaOf(m_bench->window().window()).bottomRight() - QPoint(20, 20);
        const QPoint end = start + offset;
        const auto at = [](const QPoint &place) {
            return QStringList{u"mousemove"_s, QString::number(place.x()),
                               QString::number(place.y())};
        };
        const QStringList rest{u"sleep"_s, u"0.1"_s};
        const QStringList press{u"keydown"_s, u"alt"_s, u"mousedown"_s, u"3"_s};
        const QStringList release{u"mouseup"_s, u"3"_s, u"keyup"_s, u"alt"_s};
        return m_bench->window().activate()
               && display.xdotool(at(start) + press + rest + at((start + end) / 2) + rest + at(end)
                                  + rest + release)
               && display.parkMouse();
    }

    const QSize least = QSize(960, 640);
    VirtualDesktop m_desktop;
    std::unique_ptr<ProgramBench> m_bench;
};

QUORVALE_TEST(WindowSizeTest)
#include "windowsize_test.moc"
