// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "fakeportal.h"

#include <QDBusMessage>

using namespace Qt::StringLiterals;

namespace quorvale::test {

namespace {

// The object that stands for one open chooser.
class FakeRequest : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Request")

public:
    FakeRequest(QObject *parent, std::function<void()> whenClosed)
        : QObject(parent), m_whenClosed(std::move(whenClosed))
    {
    }

public Q_SLOTS:
    void Close() { m_whenClosed(); }

private:
    std::function<void()> m_whenClosed;
};

} // namespace

FakePortal::FakePortal(const QDBusConnection &connection, uint version)
    : m_bus(connection.name()), m_version(version)
{
    if (!bus().registerObject(u"/org/freedesktop/portal/desktop"_s, this,
                              QDBusConnection::ExportAllSlots
                                  | QDBusConnection::ExportAllProperties)
        || !bus().registerService(u"org.freedesktop.portal.Desktop"_s))
        qFatal("Cannot play a portal");
}

QDBusObjectPath FakePortal::OpenFile(const QString &parentWindow, const QString &title,
                                     const QVariantMap &options)
{
    m_calls << Call{parentWindow, title, options};
    if (refuses) {
        sendErrorReply(QDBusError::Failed, u"I will not."_s);
        return {};
    }
    const QString caller = message().service().mid(1).replace(u'.', u'_');
    const QString last = handles == Handles::asAsked ? options.value(u"handle_token"_s).toString()
                                                     : u"own%1"_s.arg(m_calls.size());
    m_handle = u"/org/freedesktop/portal/desktop/request/"_s + caller + u'/' + last;
    auto *request = new FakeRequest(this, [this] { ++m_closedRequests; });
    if (!bus().registerObject(m_handle, request, QDBusConnection::ExportAllSlots))
        qFatal("Cannot play a request");
    beforeReply();
    if (keepsSilent)
        setDelayedReply(true);
    QMetaObject::invokeMethod(
        this, [this] { whenOpen(); }, Qt::QueuedConnection);
    return QDBusObjectPath(m_handle);
}

void FakePortal::respond(Response response, const QStringList &uris)
{
    auto signal =
        QDBusMessage::createSignal(m_handle, u"org.freedesktop.portal.Request"_s, u"Response"_s);
    QVariantMap results;
    if (response == success)
        results.insert(u"uris"_s, uris);
    signal << static_cast<uint>(response) << results;
    bus().send(signal);
}

} // namespace quorvale::test

#include "fakeportal.moc"
