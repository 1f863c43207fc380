// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "appearanceportal.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>

using namespace Qt::StringLiterals;

namespace quorvale {

namespace {

constexpr auto portal = "org.freedesktop.portal.Desktop"_L1;
constexpr auto portalPath = "/org/freedesktop/portal/desktop"_L1;
constexpr auto settingsInterface = "org.freedesktop.portal.Settings"_L1;
constexpr auto appearance = "org.freedesktop.appearance"_L1;
constexpr auto colorSchemeKey = "color-scheme"_L1;
constexpr auto gnomeInterface = "org.gnome.desktop.interface"_L1;
constexpr auto fontKey = "font-name"_L1;

// By the setting's values of which it is known what they mean.
std::optional<bool> preference(uint colorScheme)
{
    constexpr uint prefersDark = 1;
    constexpr uint prefersLight = 2;
    if (colorScheme == prefersDark)
        return true;
    if (colorScheme == prefersLight)
        return false;
    return std::nullopt;
}

} // namespace

AppearancePortal::AppearancePortal(QObject *parent) : QObject(parent)
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return;
    // Qt connects no slot with a type that it has not been told of.
    qDBusRegisterMetaType<QDBusVariant>();
    if (!bus.connect(portal, portalPath, settingsInterface, u"SettingChanged"_s, this,
                     SLOT(readSetting(QString, QString, QDBusVariant))))
        qWarning("A change of the desktop's look will not be followed.");
    // What a portal says that comes later or again may be something else.
    auto *watcher =
        new QDBusServiceWatcher(portal, bus, QDBusServiceWatcher::WatchForRegistration, this);
    connect(watcher, &QDBusServiceWatcher::serviceRegistered, this, &AppearancePortal::askForAll);
    askForAll();
}

void AppearancePortal::askForAll()
{
    ask(appearance, colorSchemeKey);
    ask(gnomeInterface, fontKey);
}

void AppearancePortal::ask(const QString &group, const QString &key)
{
    QDBusMessage question =
        QDBusMessage::createMethodCall(portal, portalPath, settingsInterface, u"Read"_s);
    question << group << key;
    auto *answer =
        new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(question), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer, group, key] {
        // The answer is wrapped twice.
        const QDBusPendingReply<QDBusVariant> reply = *answer;
        if (!reply.isError())
            readSetting(group, key, reply.value());
        answer->deleteLater();
    });
}

void AppearancePortal::readSetting(const QString &group, const QString &key,
                                   const QDBusVariant &value)
{
    const bool isColorScheme = group == appearance && key == colorSchemeKey;
    const bool isFont = group == gnomeInterface && key == fontKey;
    QVariant content = value.variant();
    if (content.canConvert<QDBusVariant>())
        content = content.value<QDBusVariant>().variant();
    if (isFont && content.metaType() == QMetaType::fromType<QString>())
        Q_EMIT prefersFont(content.toString());
    bool isNumber = false;
    const uint colorScheme = content.toUInt(&isNumber);
    if (isColorScheme && isNumber)
        Q_EMIT prefersDark(preference(colorScheme));
}

} // namespace quorvale
