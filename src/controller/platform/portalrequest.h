// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDBusConnection>
#include <QDBusPendingCallWatcher>
#include <QEventLoop>
#include <QList>
#include <QObject>
#include <QUrl>
#include <QVariantMap>

namespace quorvale {

/// One use of the desktop portal's file chooser (org.freedesktop.portal.FileChooser and .Request of
/// the XDG desktop portal). Main thread; waits by processing events.
class PortalRequest : public QObject
{
    Q_OBJECT

public:
    enum class Outcome {
        chosen,
        cancelled,  ///< by the user, or by the end of the portal, the bus or the program
        unavailable ///< the portal showed nothing and will show nothing
    };

    explicit PortalRequest(const QDBusConnection &bus);

    /// The version of the portal's file chooser; 0 when there is none or when it does not answer
    /// soon. A portal that does not run yet is started.
    uint version() const;

    /// Opens the file chooser with the options of OpenFile and waits until it is closed. Once for
    /// each object.
    Outcome open(const QString &parentWindow, const QString &title, QVariantMap options);

    /// What was chosen, in the chooser's order.
    const QList<QUrl> &urls() const { return m_urls; }

private Q_SLOTS:
    void takeHandle(QDBusPendingCallWatcher *call);
    void takeResponse(uint response, const QVariantMap &results);
    void giveUp();

private:
    void listenAt(const QString &handle);
    void end(Outcome outcome);

    QDBusConnection m_bus;
    QEventLoop m_loop;
    QString m_handle; // the path of the request on the bus
    bool m_isOver = false;
    Outcome m_outcome = Outcome::cancelled;
    QList<QUrl> m_urls;
};

} // namespace quorvale
