// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "busfilemanager.h"

#include "activationtoken.h"
#include "activewindow.h"
#include "folderopener.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>

#include <utility>

using namespace Qt::StringLiterals;

namespace quorvale {

namespace {

void showItem(const QUrl &item, const QString &startupId, const QDBusConnection &bus,
              std::chrono::milliseconds patience)
{
    QDBusMessage request = QDBusMessage::createMethodCall(
        u"org.freedesktop.FileManager1"_s, u"/org/freedesktop/FileManager1"_s,
        u"org.freedesktop.FileManager1"_s, u"ShowItems"_s);
    request << QStringList{item.toString(QUrl::FullyEncoded)} << startupId;
    const auto call = bus.asyncCall(request, static_cast<int>(patience.count()));
    auto *answer = new QDBusPendingCallWatcher(call, QCoreApplication::instance());
    QObject::connect(answer, &QDBusPendingCallWatcher::finished, answer, [answer, item] {
        if (answer->isError())
            FolderOpener().reveal(item);
        answer->deleteLater();
    });
}

} // namespace

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
    // Without a token a file manager that shows the place already would stay behind the window.
    askForActivationToken(activeWindow(), [item, bus, patience = m_patience](const QString &token) {
        showItem(item, token, bus, patience);
    });
}

} // namespace quorvale
