// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "support/programrun.h"
#include "support/testclass.h"
#include "support/virtualdesktop.h"

#include <QTest>

using namespace quorvale::test;
using namespace Qt::StringLiterals;

// The program in a session whose bus has stopped to work.
class HungBusTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theWindowOpensAndCloses()
    {
        m_desktop.session().hang();
        ProgramRun run;
        run.showOn(m_desktop);
        QVERIFY(run.start());
        const auto window = m_desktop.display().waitForWindow(u"Quorvale"_s);
        QVERIFY(window);
        QVERIFY(m_desktop.display().activate(*window));
        QVERIFY(m_desktop.display().xdotool({u"key"_s, u"alt+F4"_s}));
        QCOMPARE(run.waitForEnd(), std::optional(0));
        QCOMPARE(run.complaints(), QByteArray());
    }

private:
    VirtualDesktop m_desktop;
};

QUORVALE_TEST(HungBusTest)
#include "hungbus_test.moc"
