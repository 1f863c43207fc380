// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFuture>
#include <QList>
#include <QObject>
#include <QUrl>
#include <QVariantMap>

#include <chrono>
#include <functional>

namespace quorvale {

/// One use of the desktop portal's file chooser (org.freedesktop.portal.FileChooser and .Request of
/// the XDG desktop portal). Main thread; waits by processing events.
class PortalRequest : public QObject
{
    Q_OBJECT

public:
    enum class Outcome {
        chosen,
        cancelled, ///< by the user, who may just close the window or leave it, or by the end of the
                   ///< program
        failed     ///< there is no such portal, or it ended without an answer of the user's
    };

    explicit PortalRequest(const QDBusConnection &bus);

    /// Opens the file chooser with the options of OpenFile, as soon as the name of its parent
    /// window is there, and waits until it is closed. A portal that does not run yet is started;
    /// one whose file chooser is older than `leastVersion` is none. Once for each object.
    Outcome open(uint leastVersion, QFuture<QString> parentWindow, const QString &title,
                 QVariantMap options);

    /// The user presses on a window of the program meanwhile, where the chooser may be behind it.
    /// That closes a chooser without a parent window; above one, where the desktop keeps it, the
    /// user has to insist.
    void takePress();

    /// Closes the chooser soon, unless an answer of the user's comes first.
    void abandon();

    /// What was chosen, in the chooser's order.
    const QList<QUrl> &urls() const { return m_urls; }

private Q_SLOTS:
    void takeResponse(uint response, const QVariantMap &results);
    void giveUp() { end(Outcome::failed); }

private:
    bool listenAt(const QString &handle);
    void ask(const QDBusMessage &question, std::chrono::milliseconds patience,
             const std::function<void(const QDBusPendingCall &)> &take);
    void takeHandle(const QDBusPendingCall &answer);
    void end(Outcome outcome);

    QDBusConnection m_bus;
    QElapsedTimer m_age;
    QEventLoop m_loop;
    QString m_handle; // the path of the request on the bus
    bool m_mayBeOpen = false;
    bool m_isKeptAbove = false; // above its parent window, by the desktop
    int m_presses = 0;
    bool m_wasLeft = false; // the program, for another window
    bool m_isOver = false;
    Outcome m_outcome = Outcome::cancelled;
    QList<QUrl> m_urls;
};

} // namespace quorvale
