// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusObjectPath>
#include <QList>
#include <QObject>
#include <QVariantMap>

#include <functional>

namespace quorvale::test {

/// The file chooser of a desktop portal, which remembers its calls and has the test answer them.
class FakePortal : public QObject, protected QDBusContext
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.FileChooser")
    Q_PROPERTY(uint version READ version CONSTANT)

public:
    struct Call
    {
        QString parentWindow;
        QString title;
        QVariantMap options;
    };
    /// What the portal says in its response.
    enum Response : uint { success, cancelled, other };
    enum class Handles {
        asAsked, ///< at the path that follows from the caller's token
        ownPaths
    };

    explicit FakePortal(const QDBusConnection &connection, uint version = 4);

    uint version() const { return m_version; }

    /// What happens once a chooser is open.
    std::function<void()> whenOpen = [] {
    };
    /// What happens before the caller has been told of its request.
    std::function<void()> beforeReply = [] {
    };
    bool refuses = false;
    bool keepsSilent = false; ///< opens the chooser without replying
    Handles handles = Handles::asAsked;

    void respond(Response response, const QStringList &uris = {});

    const QList<Call> &calls() const { return m_calls; }
    int closedRequests() const { return m_closedRequests; }

public Q_SLOTS:
    QDBusObjectPath OpenFile(const QString &parentWindow, const QString &title,
                             const QVariantMap &options);

private:
    QDBusConnection bus() const { return QDBusConnection(m_bus); }

    QString m_bus; // by name, so that the test can end the connection
    uint m_version;
    QList<Call> m_calls;
    QString m_handle; // the path of the request of the last call
    int m_closedRequests = 0;
};

} // namespace quorvale::test
