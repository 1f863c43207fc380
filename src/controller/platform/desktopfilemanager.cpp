// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "desktopfilemanager.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDesktopServices>

#include <utility>

using namespace Qt::StringLiterals;

namespace quorvale {

namespace {

void openParentOf(const QUrl &folder)
{
    const QUrl parent = folder.adjusted(QUrl::RemoveFilename);
    // The root has no other name than its slash; strip others, for handlers that compare paths.
    QDesktopServices::openUrl(parent.adjusted(QUrl::StripTrailingSlash));
}

} // namespace

DesktopFileManager::DesktopFileManager(std::function<QDBusConnection()> bus,
                                       std::chrono::milliseconds patience)
    : m_bus(std::move(bus)), m_patience(patience)
{
}

void DesktopFileManager::reveal(const QUrl &folder)
{
    const QUrl item = folder.adjusted(QUrl::StripTrailingSlash);
#ifdef Q_OS_MACOS
    openParentOf(item);
#else
    const QDBusConnection bus = m_bus();
    if (!bus.isConnected())
        return openParentOf(item);

    QDBusMessage request = QDBusMessage::createMethodCall(
        u"org.freedesktop.FileManager1"_s, u"/org/freedesktop/FileManager1"_s,
        u"org.freedesktop.FileManager1"_s, u"ShowItems"_s);
    const QString startupId; // none, because the desktop gave the program none to pass on
    request << QStringList{item.toString(QUrl::FullyEncoded)} << startupId;
    const auto call = bus.asyncCall(request, static_cast<int>(m_patience.count()));
    auto *answer = new QDBusPendingCallWatcher(call, QCoreApplication::instance());
    QObject::connect(answer, &QDBusPendingCallWatcher::finished, answer, [answer, item] {
        if (answer->isError())
            openParentOf(item);
        answer->deleteLater();
    });
#endif
}

} // namespace quorvale
