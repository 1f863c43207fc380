// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "desktop/dockprogress.h"

#include "support/patience.h"
#include "support/privatebus.h"
#include "support/standindock.h"
#include "support/testclass.h"

#include <QTest>

#include <cmath>
#include <limits>

using namespace quorvale;
using namespace quorvale::test;
using namespace Qt::StringLiterals;

class DockProgressTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void onlyWholePercentsAreSent()
    {
        const StandInDock dock(m_bus);
        DockProgress progress(m_bus.connection(u"program"_s));
        for (int i = 0; i <= 3000; ++i)
            progress.show(i / 100'000.0);
        progress.hide();
        progress.hide();
        progress.show(0.02);
        QTRY_COMPARE_WITH_TIMEOUT(dock.shown(), (QList{0, 1, 2, 3, StandInDock::hidden, 2}),
                                  patience);
    }

    void whatIsNoFractionIsBroughtToOne()
    {
        const StandInDock dock(m_bus);
        DockProgress progress(m_bus.connection(u"program"_s));
        progress.show(7.5);
        progress.show(-1);
        progress.show(std::numeric_limits<double>::infinity());
        progress.show(std::nan(""));
        QTRY_COMPARE_WITH_TIMEOUT(dock.shown(), (QList{100, 0, 100, 0}), patience);
    }

    void theEndIsSentBeforeItReturns()
    {
        const StandInDock dock(m_bus);
        DockProgress progress(m_bus.connection(u"program"_s));
        progress.hideForGood(); // nothing to say
        progress.show(0.5);
        progress.hideForGood();
        QTRY_COMPARE_WITH_TIMEOUT(dock.shown(), (QList{50, StandInDock::hidden}), patience);
    }

    void aBusThatHangsHoldsTheEndUpForAMoment()
    {
        const PrivateBus bus;
        DockProgress progress(bus.connection(u"program"_s));
        progress.show(0.5);
        bus.hang();
        progress.hideForGood();
    }

    void withoutABusNothingHappens()
    {
        DockProgress progress(QDBusConnection(u"no such bus"_s));
        progress.show(0.5);
        progress.hideForGood();
    }

private:
    PrivateBus m_bus;
};

QUORVALE_TEST(DockProgressTest)
#include "dockprogress_test.moc"
