// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "busfilemanager.h"

#include "folderopener.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>

#include <utility>

using namespace Qt::StringLiterals;

namespace quorvale {

BusFileManager::BusFileManager(std::function<QDBusConnection()> bus,
                               std::chrono::milliseconds patience)
    : m_bus(std::move(bus)), m_patience(patience)
{
}

void BusFileManager::reveal(const QUrl &folder)
{
    const QUrl item = folder.adjusted(QUrl::StripTrailingSlash);
    const QDBusConnection bus = m_bus();
    if (!bus.isConnected())
        return FolderOpener().reveal(item);

    QDBusMessage request = QDBusMessage::createMethodCall(
        u"org.freedesktop.FileManager1"_s, u"/org/freedesktop/FileManager1"_s,
        u"org.freedesktop.FileManager1"_s, u"ShowItems"_s);
    const QString startupId; // none, because the desktop gave the program none to pass on
    request << QStringList{item.toString(QUrl::FullyEncoded)} << startupId;
    const auto call = bus.asyncCall(request, static_cast<int>(m_patience.count()));
    auto *answer = new QDBusPendingCallWatcher(call, QCoreApplication::instance());
    QObject::connect(answer, &QDBusPendingCallWatcher::finished, answer, [answer, item] {
        if (answer->isError())
            FolderOpener().reveal(item);
        answer->deleteLater();
    });
}

} // namespace quorvale
