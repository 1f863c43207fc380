// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

// A stand-in for a service of the desktop on the session bus, at every path and with every
// interface. It says on standard output by which name of its connection the test can steer it, with
// two methods of the interface "quorvale.test.StandIn":
//
//   Prepare(METHOD, SCRIPT)  what every call of that method does from now on
//   Perform(SCRIPT)          what is done now
//
// A script is a list of steps, and a step a list of a word and its values:
//
//   appear NAME     take the service's name
//   reply VALUE...  answer the last call
//   refuse          answer it by an error
//   reply-lock      answer it by a file descriptor, and call it a call of "released" when that has
//                   been closed by everyone who has a copy
//   reply-request   answer it by the path that portals make from the caller and its token
//   signal PATH INTERFACE NAME VALUE...  send a signal; an empty path stands for the one above
//   end             end without a word
//
// When a call has done its script, the signal Called(METHOD, VALUES) tells the test. A call of any
// other method is an error.

#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusUnixFileDescriptor>
#include <QDBusVirtualObject>
#include <QHash>
#include <QSocketNotifier>

#include <array>
#include <cstdio>
#include <cstdlib>

#include <fcntl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

const auto steering = u"quorvale.test.StandIn"_s;

class StandInService : public QDBusVirtualObject
{
public:
    QString introspect(const QString &) const override { return {}; }

    bool handleMessage(const QDBusMessage &message, const QDBusConnection &bus) override
    {
        const QVariantList values = message.arguments();
        if (message.interface() == steering) {
            if (message.member() == "Prepare"_L1)
                m_scripts[values.value(0).toString()] = listIn(values.value(1));
            else
                perform(listIn(values.value(0)), bus);
            return bus.send(message.createReply());
        }
        const auto script = m_scripts.constFind(message.member());
        if (script == m_scripts.cend())
            return false;
        m_call = message;
        nameRequest();
        perform(*script, bus);
        return bus.send(report(message.member(), values));
    }

private:
    static QDBusMessage report(const QString &method, const QVariantList &values)
    {
        auto report = QDBusMessage::createSignal(u"/"_s, steering, u"Called"_s);
        return report << method << QVariant(values);
    }

    static QVariantList listIn(const QVariant &value) { return qdbus_cast<QVariantList>(value); }

    void perform(const QVariantList &script, const QDBusConnection &bus)
    {
        for (const QVariant &step : script) {
            QVariantList values = listIn(step);
            perform(values.takeFirst().toString(), values, bus);
        }
    }

    void perform(const QString &step, const QVariantList &values, const QDBusConnection &bus)
    {
        if (step == "appear"_L1) {
            if (!QDBusConnection(bus).registerService(values.value(0).toString()))
                qFatal("The name is taken.");
        } else if (step == "reply"_L1) {
            bus.send(m_call.createReply(values));
        } else if (step == "refuse"_L1) {
            bus.send(m_call.createErrorReply(QDBusError::Failed, u"I will not."_s));
        } else if (step == "reply-lock"_L1) {
            std::array<int, 2> ends{};
            if (::pipe2(ends.data(), O_CLOEXEC) != 0)
                qFatal("There is no pipe.");
            bus.send(m_call.createReply(QVariant::fromValue(QDBusUnixFileDescriptor(ends[1]))));
            ::close(ends[1]);
            auto *released = new QSocketNotifier(ends[0], QSocketNotifier::Read, this);
            connect(released, &QSocketNotifier::activated, this, [released, bus] {
                released->setEnabled(false);
                bus.send(report(u"released"_s, {}));
            });
        } else if (step == "reply-request"_L1) {
            bus.send(m_call.createReply(QVariant::fromValue(QDBusObjectPath(m_request))));
        } else if (step == "signal"_L1) {
            const QString path = values.value(0).toString();
            auto signal =
                QDBusMessage::createSignal(path.isEmpty() ? m_request : path,
                                           values.value(1).toString(), values.value(2).toString());
            signal.setArguments(values.sliced(3));
            bus.send(signal);
        } else if (step == "end"_L1) {
            ::_exit(EXIT_SUCCESS);
        } else {
            qFatal("There is no step %s.", qPrintable(step));
        }
    }

    void nameRequest()
    {
        const auto options = qdbus_cast<QVariantMap>(m_call.arguments().value(2));
        const QString token = options.value(u"handle_token"_s).toString();
        if (!token.isEmpty())
            m_request = u"/org/freedesktop/portal/desktop/request/"_s
                        + m_call.service().mid(1).replace(u'.', u'_') + u'/' + token;
    }

    QHash<QString, QVariantList> m_scripts;
    QDBusMessage m_call; // the last one that had a script
    QString m_request;   // the path of the last one that had a token
};

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    StandInService service;
    auto bus = QDBusConnection::sessionBus();
    if (!bus.registerVirtualObject(u"/"_s, &service, QDBusConnection::SubPath)) {
        std::fprintf(stderr, "standinservice: %s\n", qPrintable(bus.lastError().message()));
        return EXIT_FAILURE;
    }
    std::puts(qPrintable(bus.baseService()));
    std::fflush(stdout);
    return QCoreApplication::exec();
}
