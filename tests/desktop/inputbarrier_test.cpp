// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "desktop/inputbarrier.h"

#include "support/testclass.h"

#include <QMimeData>
#include <QSet>
#include <QSignalSpy>
#include <QTest>
#include <QWindow>

#include <qpa/qwindowsysteminterface.h>
#include <qpa/qwindowsysteminterface_p.h>

using namespace quorvale;
using namespace Qt::StringLiterals;

namespace {

// What the user begins in a window.
const QSet<QEvent::Type> beginnings{
    QEvent::MouseButtonPress, QEvent::MouseMove, QEvent::Wheel, QEvent::TouchBegin,
    QEvent::KeyPress,         QEvent::DragEnter, QEvent::Drop};

// A window that keeps in mind which of them came.
struct WorkedWindow : QWindow
{
    bool event(QEvent *event) override
    {
        if (beginnings.contains(event->type()))
            came << event->type();
        return QWindow::event(event);
    }

    QSet<QEvent::Type> came;
};

// Begins each of them; three are presses.
void workOn(QWindow &window)
{
    static QPointingDevice *const screen = QTest::createTouchDevice();
    QTest::mouseClick(&window, Qt::LeftButton);
    QTest::mouseMove(&window, {9, 9});
    QWheelEvent wheel({9, 9}, {9, 9}, {}, {0, 120}, {}, {}, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&window, &wheel);
    QTest::touchEvent(&window, screen).press(0, {9, 9});
    // On X11 and Wayland Qt makes the mouse's of a pen's events that nobody takes.
    QWindowSystemInterfacePrivate::TabletEvent::setPlatformSynthesizesMouse(false);
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::NoButton})
        QWindowSystemInterface::handleTabletEvent(&window, QPointingDevice::primaryPointingDevice(),
                                                  {9, 9}, {9, 9}, button, 0.5, 0, 0, 0, 0, 0);
    QWindowSystemInterface::flushWindowSystemEvents();
    QTest::keyClick(&window, Qt::Key_Delete);
    const QMimeData files;
    QDragEnterEvent enter({9, 9}, Qt::CopyAction, &files, {}, {});
    QCoreApplication::sendEvent(&window, &enter);
    QDropEvent drop({9, 9}, Qt::CopyAction, &files, {}, {});
    QCoreApplication::sendEvent(&window, &drop);
}

} // namespace

class InputBarrierTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_window.resize(100, 100);
        m_window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&m_window));
        m_window.came.clear();
    }

    void keepsTheUserOutAsLongAsItIsThere()
    {
        {
            const InputBarrier barrier;
            QVERIFY(InputBarrier::isUp());
            workOn(m_window);
            QVERIFY(m_window.came.isEmpty());
        }
        QVERIFY(!InputBarrier::isUp());
        workOn(m_window);
        QCOMPARE(m_window.came, beginnings);
    }

    void letsTheWindowBeClosed()
    {
        const InputBarrier barrier;
        QWindowSystemInterface::handleCloseEvent<QWindowSystemInterface::SynchronousDelivery>(
            &m_window);
        QVERIFY(!m_window.isVisible());
    }

    void saysWhenTheUserIsThere()
    {
        const InputBarrier barrier;
        const QSignalSpy pressed(&barrier, &InputBarrier::pressed);
        const QSignalSpy escaped(&barrier, &InputBarrier::escaped);
        workOn(m_window);
        QCOMPARE(pressed.size(), 3);
        QCOMPARE(escaped.size(), 0);
        QTest::keyClick(&m_window, Qt::Key_Escape);
        QCOMPARE(pressed.size(), 3);
        QCOMPARE(escaped.size(), 1);
    }

private:
    WorkedWindow m_window;
};

QUORVALE_TEST(InputBarrierTest)
#include "inputbarrier_test.moc"
