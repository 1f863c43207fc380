// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "systemlook.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QEvent>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QPalette>

using namespace Qt::StringLiterals;

namespace quorvale {

namespace {

constexpr auto portal = "org.freedesktop.portal.Desktop"_L1;
constexpr auto portalPath = "/org/freedesktop/portal/desktop"_L1;
constexpr auto settingsInterface = "org.freedesktop.portal.Settings"_L1;
constexpr auto appearance = "org.freedesktop.appearance"_L1;
constexpr auto colorSchemeKey = "color-scheme"_L1;

} // namespace

SystemLook::SystemLook(QObject *parent) : QObject(parent)
{
    QCoreApplication::instance()->installEventFilter(this);
    followPreference();
}

QColor SystemLook::window() const
{
    return QGuiApplication::palette().color(QPalette::Active, QPalette::Window);
}

bool SystemLook::isWindowDark() const
{
    return window().lightnessF() < 0.5F;
}

QString SystemLook::fixedFamily() const
{
    return QFontDatabase::systemFont(QFontDatabase::FixedFont).family();
}

bool SystemLook::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::ApplicationPaletteChange
        && watched == QCoreApplication::instance())
        Q_EMIT changed();
    return QObject::eventFilter(watched, event);
}

void SystemLook::followPreference()
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return;
    // Qt connects no slot with a type that it has not been told of.
    qDBusRegisterMetaType<QDBusVariant>();
    if (!bus.connect(portal, portalPath, settingsInterface, u"SettingChanged"_s, this,
                     SLOT(readSetting(QString, QString, QDBusVariant))))
        qWarning("A change of the desktop between light and dark will not be followed.");
    // What a portal says that comes later or again may be something else.
    auto *watcher =
        new QDBusServiceWatcher(portal, bus, QDBusServiceWatcher::WatchForRegistration, this);
    connect(watcher, &QDBusServiceWatcher::serviceRegistered, this, &SystemLook::askForPreference);
    askForPreference();
}

void SystemLook::askForPreference()
{
    QDBusMessage question =
        QDBusMessage::createMethodCall(portal, portalPath, settingsInterface, u"Read"_s);
    question << QString(appearance) << QString(colorSchemeKey);
    auto *answer =
        new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(question), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        // The answer is wrapped twice.
        const QDBusPendingReply<QDBusVariant> reply = *answer;
        if (!reply.isError())
            readSetting(appearance, colorSchemeKey, reply.value());
        answer->deleteLater();
    });
}

void SystemLook::readSetting(const QString &group, const QString &key, const QDBusVariant &value)
{
    if (group != appearance || key != colorSchemeKey)
        return;
    QVariant content = value.variant();
    if (content.canConvert<QDBusVariant>())
        content = content.value<QDBusVariant>().variant();
    bool isNumber = false;
    const uint colorScheme = content.toUInt(&isNumber);
    if (isNumber)
        setPreference(colorScheme);
}

void SystemLook::setPreference(uint colorScheme)
{
    constexpr uint prefersDark = 1;
    constexpr uint prefersLight = 2;
    if (colorScheme == prefersDark)
        m_prefersDark = true;
    else if (colorScheme == prefersLight)
        m_prefersDark = false;
    else
        m_prefersDark.reset();
    Q_EMIT changed();
}

} // namespace quorvale
