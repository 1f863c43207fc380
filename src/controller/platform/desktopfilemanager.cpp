// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "desktopfilemanager.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDesktopServices>

using namespace Qt::StringLiterals;

namespace quorvale {

namespace {

// Long enough for a file manager that is started for it.
constexpr int patience = 15'000; // milliseconds

void openParent(const QUrl &folder)
{
    const QUrl parent = folder.adjusted(QUrl::StripTrailingSlash).adjusted(QUrl::RemoveFilename);
    QDesktopServices::openUrl(parent.adjusted(QUrl::StripTrailingSlash));
}

} // namespace

void DesktopFileManager::reveal(const QUrl &folder)
{
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return openParent(folder);

    QDBusMessage request = QDBusMessage::createMethodCall(
        u"org.freedesktop.FileManager1"_s, u"/org/freedesktop/FileManager1"_s,
        u"org.freedesktop.FileManager1"_s, u"ShowItems"_s);
    const QString startupId; // none, because the desktop gave the program none to pass on
    request << QStringList{folder.toString(QUrl::FullyEncoded)} << startupId;
    auto *answer =
        new QDBusPendingCallWatcher(bus.asyncCall(request, patience), QCoreApplication::instance());
    QObject::connect(answer, &QDBusPendingCallWatcher::finished, answer, [answer, folder] {
        const QDBusPendingReply<> reply = *answer;
        if (reply.isError())
            openParent(folder);
        answer->deleteLater();
    });
}

} // namespace quorvale
