// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "desktop/silentbus.h"

#include "support/patience.h"
#include "support/privatebus.h"
#include "support/testclass.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

using namespace quorvale;
using namespace quorvale::test;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

class SilentBusTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        qunsetenv("DBUS_SESSION_BUS_ADDRESS");
        qunsetenv("XDG_RUNTIME_DIR");
    }

    void aBusThatAnswersIsUsed()
    {
        const PrivateBus bus;
        const QByteArray address = bus.address().toUtf8();
        QVERIFY(!isSilentBus(address, longTime));
        qputenv("DBUS_SESSION_BUS_ADDRESS", address);
        leaveSilentSessionBus(longTime);
        QCOMPARE(qgetenv("DBUS_SESSION_BUS_ADDRESS"), address);
    }

    void aBusThatHangsIsLeft()
    {
        PrivateBus bus;
        bus.hang();
        const QByteArray address = bus.address().toUtf8();
        QVERIFY(isSilentBus(address, 100ms));
        QVERIFY(
            isSilentBus("unix:abstract=no/such/bus;" + address.toPercentEncoding(":;=,/"), 100ms));
        qputenv("DBUS_SESSION_BUS_ADDRESS", address);
        leaveSilentSessionBus(100ms);
        QCOMPARE(qgetenv("DBUS_SESSION_BUS_ADDRESS"), "disabled:");
    }

    // Where no variable names a bus, it is the user's.
    void theUsersBusIsLeftToo()
    {
        PrivateBus bus;
        bus.hang();
        const QTemporaryDir folder;
        QVERIFY(QFile::link(socketOf(bus), folder.filePath(u"bus"_s)));
        qputenv("XDG_RUNTIME_DIR", QFile::encodeName(folder.path()));
        leaveSilentSessionBus(100ms);
        QCOMPARE(qgetenv("DBUS_SESSION_BUS_ADDRESS"), "disabled:");
    }

    void whereThereIsNoBusNoneIsSilent()
    {
        QElapsedTimer time;
        time.start();
        QVERIFY(!isSilentBus("unix:path=/no/such/bus", longTime));
        QVERIFY(!isSilentBus("no address", longTime));
        leaveSilentSessionBus(longTime);
        QVERIFY(!qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS"));
        QVERIFY(!time.hasExpired(patience));
    }

    // Its queue is full by then, and the next connection does not come about.
    void aBusThatHasHungForLongIsSilent()
    {
        PrivateBus bus;
        bus.hang();
        fillQueue(socketOf(bus));
        QVERIFY(isSilentBus(bus.address().toUtf8(), 100ms));
    }

private:
    static QString socketOf(const PrivateBus &bus)
    {
        return bus.address().section(u"path="_s, 1).section(u',', 0, 0);
    }

    static void fillQueue(const QString &path)
    {
        sockaddr_un address{.sun_family = AF_UNIX, .sun_path = {}};
        const QByteArray name = QFile::encodeName(path);
        QVERIFY(static_cast<std::size_t>(name.size()) < sizeof address.sun_path);
        std::ranges::copy(name, address.sun_path);
        int outcome = 0;
        while (outcome == 0) {
            const int connection = ::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK, 0);
            outcome =
                ::connect(connection, reinterpret_cast<const sockaddr *>(&address), sizeof address);
            ::close(connection);
        }
    }

    static constexpr std::chrono::milliseconds longTime{patience};
};

QUORVALE_TEST(SilentBusTest)
#include "silentbus_test.moc"
