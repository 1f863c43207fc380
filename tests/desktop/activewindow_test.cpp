// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "desktop/activewindow.h"
#include "support/testclass.h"

#include <QGuiApplication>
#include <QTest>
#include <QWindow>

using namespace quorvale;

class ActiveWindowTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isTheOneWithTheFocus()
    {
        QWindow one;
        QWindow two;
        for (QWindow *window : {&one, &two, &one}) {
            focus(*window);
            QCOMPARE(activeWindow(), window);
        }
    }

    // As a dialog that is closing has it.
    void isNoneThatIsHiddenThoughItHasTheFocus()
    {
        QWindow window;
        focus(window);
        QWindow dialog;
        focus(dialog);
        dialog.hide();
        QCOMPARE(QGuiApplication::focusWindow(), &dialog);
        QCOMPARE(activeWindow(), &window);
    }

    void isNoneWhereThereIsNone()
    {
        QWindow hidden;
        QCOMPARE(activeWindow(), nullptr);
    }

private:
    static void focus(QWindow &window)
    {
        window.show();
        window.requestActivate();
        QVERIFY(QTest::qWaitForWindowActive(&window));
    }
};

QUORVALE_TEST(ActiveWindowTest)
#include "activewindow_test.moc"
