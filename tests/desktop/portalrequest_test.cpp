// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "desktop/portalrequest.h"

#include "support/patience.h"
#include "support/privatebus.h"
#include "support/standinportal.h"
#include "support/testclass.h"

#include <QTest>
#include <QTimer>
#include <QWindow>

#include <qpa/qwindowsysteminterface.h>

using namespace quorvale;
using namespace quorvale::test;
using namespace Qt::StringLiterals;

using Outcome = PortalRequest::Outcome;

namespace {

// Has the keyboard go to the window, or to another program for null.
void giveKeyboardTo(QWindow *window)
{
    QWindowSystemInterface::handleWindowActivated<QWindowSystemInterface::SynchronousDelivery>(
        window);
}

} // namespace

// What becomes of a chooser when the user turns to the program's window instead.
class PortalRequestTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pressesCloseAChooserThatMayBeOutOfSight_data()
    {
        QTest::addColumn<QString>("parent");
        QTest::addColumn<bool>("isOpen"); // rather than about to come
        QTest::addColumn<int>("presses");
        QTest::addColumn<Outcome>("outcome");
        const QString none;
        const auto parent = u"x11:7"_s; // above which the desktop keeps it
        QTest::newRow("one") << none << true << 1 << Outcome::cancelled;
        QTest::newRow("of a double click") << none << false << 2 << Outcome::chosen;
        QTest::newRow("on its parent") << parent << true << 2 << Outcome::chosen;
        QTest::newRow("on its parent, insisting") << parent << true << 3 << Outcome::cancelled;
    }
    void pressesCloseAChooserThatMayBeOutOfSight()
    {
        QFETCH(const QString, parent);
        QFETCH(const bool, isOpen);
        QFETCH(const int, presses);
        QFETCH(const Outcome, outcome);
        const PrivateBus bus;
        const StandInPortal portal(bus);
        PortalRequest request(bus.connection(u"program"_s));
        QWindow window;
        giveKeyboardTo(&window);
        connect(&portal, &StandInService::called, &request, [&](const QString &method) {
            if (method != u"OpenFile"_s)
                return;
            if (isOpen)
                giveKeyboardTo(nullptr);
            for (int press = 0; press < presses; ++press)
                request.takePress();
            // After what the presses do.
            QTimer::singleShot(400, &request, [&] {
                portal.perform({StandInPortal::respond(StandInPortal::success)});
            });
        });
        QCOMPARE(open(request, parent), outcome);
        const int closed = outcome == Outcome::cancelled ? 1 : 0;
        QTRY_COMPARE_WITH_TIMEOUT(portal.calls(u"Close"_s).size(), closed, patience);
    }

    void oneThatIsAbandonedTakesAnAnswerThatIsOnItsWay_data()
    {
        QTest::addColumn<bool>("isAnswered");
        QTest::addColumn<Outcome>("outcome");
        QTest::newRow("an answer") << true << Outcome::chosen;
        QTest::newRow("none") << false << Outcome::cancelled;
    }
    void oneThatIsAbandonedTakesAnAnswerThatIsOnItsWay()
    {
        QFETCH(const bool, isAnswered);
        const PrivateBus bus;
        const StandInPortal portal(bus);
        PortalRequest request(bus.connection(u"program"_s));
        connect(&portal, &StandInService::called, &request, [&](const QString &method) {
            if (method != u"OpenFile"_s)
                return;
            request.abandon();
            if (isAnswered)
                portal.perform({StandInPortal::respond(StandInPortal::success)});
        });
        QTEST(open(request, u"x11:7"_s), "outcome");
    }

private:
    static Outcome open(PortalRequest &request, const QString &parent)
    {
        return request.open(1, QtFuture::makeReadyFuture(parent), u"Choose videos"_s, {});
    }
};

QUORVALE_TEST(PortalRequestTest)
#include "portalrequest_test.moc"
