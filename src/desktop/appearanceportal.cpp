// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "appearanceportal.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QDBusServiceWatcher>
#include <QMap>

#include <utility>

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
constexpr auto textScaleKey = "text-scaling-factor"_L1;
constexpr auto animationsKey = "enable-animations"_L1;
constexpr auto kdeGlobals = "org.kde.kdeglobals.KDE"_L1;
constexpr auto durationKey = "AnimationDurationFactor"_L1;

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

// By GNOME's setting, nothing where that is of another type.
std::optional<bool> gnomeAnimates(const QVariant &isEnabled)
{
    const bool isBoolean = isEnabled.metaType() == QMetaType::fromType<bool>();
    return isBoolean ? std::optional(isEnabled.toBool()) : std::nullopt;
}

// By how long all that moves is to take on KDE, as the file of its settings has it.
std::optional<bool> kdeAnimates(const QVariant &factor)
{
    bool isNumber = false;
    const double value = factor.toString().toDouble(&isNumber);
    return isNumber ? std::optional(value > 0) : std::nullopt;
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
    // Plasma's portal reads the file again on this, but says nothing of what has changed in it.
    bus.connect({}, u"/KGlobalSettings"_s, u"org.kde.KGlobalSettings"_s, u"notifyChange"_s, this,
                SLOT(ask()));
    // What a portal says that comes later or again may be something else.
    auto *watcher =
        new QDBusServiceWatcher(portal, bus, QDBusServiceWatcher::WatchForRegistration, this);
    connect(watcher, &QDBusServiceWatcher::serviceRegistered, this, &AppearancePortal::ask);
    m_hasAnswered = false;
    ask();
}

void AppearancePortal::ask()
{
    QDBusMessage question =
        QDBusMessage::createMethodCall(portal, portalPath, settingsInterface, u"ReadAll"_s);
    question << QStringList{appearance, gnomeInterface, kdeGlobals};
    auto *answer =
        new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(question), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        const QVariant content = answer->reply().arguments().value(0);
        const auto groups = qdbus_cast<QMap<QString, QVariantMap>>(content);
        for (const auto &[group, key] :
             {std::pair(appearance, colorSchemeKey), std::pair(gnomeInterface, fontKey),
              std::pair(gnomeInterface, textScaleKey), std::pair(gnomeInterface, animationsKey),
              std::pair(kdeGlobals, durationKey)})
            readSetting(group, key, QDBusVariant(groups.value(group).value(key)));
        m_hasAnswered = true;
        Q_EMIT answered();
        answer->deleteLater();
    });
}

void AppearancePortal::readSetting(const QString &group, const QString &key,
                                   const QDBusVariant &value)
{
    const bool isColorScheme = group == appearance && key == colorSchemeKey;
    const bool isFont = group == gnomeInterface && key == fontKey;
    const bool isTextScale = group == gnomeInterface && key == textScaleKey;
    const QVariant content = value.variant();
    if (isFont && content.metaType() == QMetaType::fromType<QString>())
        Q_EMIT prefersFont(content.toString());
    const double factor = content.toDouble();
    const bool isFactor = content.metaType() == QMetaType::fromType<double>();
    if (isTextScale && isFactor && factor >= 0.5 && factor <= 3)
        Q_EMIT scalesTexts(factor);
    bool isNumber = false;
    const uint colorScheme = content.toUInt(&isNumber);
    if (isColorScheme && isNumber)
        Q_EMIT prefersDark(preference(colorScheme));
    // Nothing moves where either says so: KDE sets GNOME's, too.
    if (group == gnomeInterface && key == animationsKey)
        m_gnomeAnimates = gnomeAnimates(content).value_or(m_gnomeAnimates);
    if (group == kdeGlobals && key == durationKey)
        m_kdeAnimates = kdeAnimates(content).value_or(m_kdeAnimates);
    Q_EMIT animates(m_gnomeAnimates && m_kdeAnimates);
}

} // namespace quorvale
