// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "support/patience.h"
#include "support/programrun.h"
#include "support/testclass.h"

#include <QFileInfo>
#include <QTest>

using namespace quorvale::test;
using namespace Qt::StringLiterals;

// What the program does where it cannot open a window.
class NoDisplayTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void adviseOnAVirtualDisplay_data()
    {
        QTest::addColumn<QString>("variable");
        QTest::addColumn<QString>("value");
        QTest::newRow("no display") << QString() << QString();
        QTest::newRow("X11 without a display") << u"QT_QPA_PLATFORM"_s << u"xcb"_s;
        QTest::newRow("Wayland session without a display") << u"XDG_SESSION_TYPE"_s << u"wayland"_s;
        QTest::newRow("display of no server") << u"DISPLAY"_s << deadDisplay;
        QTest::newRow("unknown platform") << u"QT_QPA_PLATFORM"_s << u"nosuchplatform"_s;
    }
    void adviseOnAVirtualDisplay()
    {
        QFETCH(const QString, variable);
        QFETCH(const QString, value);
        QVERIFY(!QFileInfo::exists(u"/tmp/.X11-unix/X"_s + deadDisplay.sliced(1)));

        ProgramRun run; // its environment names no display
        if (!variable.isEmpty())
            run.set(variable, value);
        QVERIFY(run.start());
        QCOMPARE(run.waitForEnd(), std::optional(1));
        QVERIFY2(run.standardError().contains("xvfb-run"), run.standardError().constData());
    }

private:
    // A number that servers that look for a free one, from 0 up, never come to.
    const QString deadDisplay = u":59000"_s;
};

QUORVALE_TEST(NoDisplayTest)
#include "nodisplay_test.moc"
