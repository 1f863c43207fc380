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
#include <QMetaType>

#include <algorithm>
#include <array>

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
constexpr auto gnomeAccess = "org.gnome.desktop.a11y.interface"_L1;
constexpr auto kdeGlobals = "org.kde.kdeglobals.KDE"_L1;

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

std::optional<bool> isOne(const QVariant &value)
{
    const bool isNumber = value.metaType() == QMetaType::fromType<uint>();
    return isNumber ? std::optional(value.toUInt() == 1) : std::nullopt;
}

std::optional<bool> isTrue(const QVariant &value)
{
    const bool isBoolean = value.metaType() == QMetaType::fromType<bool>();
    return isBoolean ? std::optional(value.toBool()) : std::nullopt;
}

std::optional<bool> isFalse(const QVariant &value)
{
    const auto is = isTrue(value);
    return is ? std::optional(!*is) : std::nullopt;
}

// As a text, as it stands in a file.
std::optional<bool> isZero(const QVariant &value)
{
    bool isNumber = false;
    const double number = value.toString().toDouble(&isNumber);
    return isNumber ? std::optional(number == 0) : std::nullopt;
}

enum class Wish { contrast, stillness };

// A setting by which a desktop says a wish of the user's.
struct Source
{
    Wish wish;
    QLatin1StringView group, key;
    std::optional<bool> (*says)(const QVariant &value); // nothing where it is of another type
};

constexpr std::array sources{
    Source{Wish::contrast, appearance, "contrast"_L1, isOne},
    Source{Wish::contrast, gnomeAccess, "high-contrast"_L1, isTrue},
    Source{Wish::stillness, appearance, "reduced-motion"_L1, isOne},
    Source{Wish::stillness, gnomeInterface, "enable-animations"_L1, isFalse},
    // How much longer than usual everything that moves is to take.
    Source{Wish::stillness, kdeGlobals, "AnimationDurationFactor"_L1, isZero},
};

} // namespace

AppearancePortal::AppearancePortal(QObject *parent) : QObject(parent)
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return;
    // Qt connects no slot with a type that it has not been told of.
    qDBusRegisterMetaType<QDBusVariant>();
    if (!bus.connect(portal, portalPath, settingsInterface, u"SettingChanged"_s, this,
                     SLOT(take(QString, QString, QDBusVariant))))
        qWarning("A change of the desktop's look will not be followed.");
    // Plasma's portal reads its file again on this, and says nothing of most changes there.
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
    question << QStringList{appearance, gnomeInterface, gnomeAccess, kdeGlobals};
    auto *answer =
        new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(question), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        const QVariant content = answer->reply().arguments().value(0);
        const auto groups = qdbus_cast<QMap<QString, QVariantMap>>(content);
        if (!answer->isError())
            m_wishes.clear(); // of which one that is as usual may not be said
        for (const auto &[group, settings] : groups.asKeyValueRange()) {
            for (const auto &[key, value] : settings.asKeyValueRange())
                read(group, key, value);
        }
        tellWishes();
        m_hasAnswered = true;
        Q_EMIT answered();
        answer->deleteLater();
    });
}

void AppearancePortal::take(const QString &group, const QString &key, const QDBusVariant &value)
{
    read(group, key, value.variant());
    tellWishes();
}

void AppearancePortal::read(const QString &group, const QString &key, const QVariant &value)
{
    const bool isColorScheme = group == appearance && key == colorSchemeKey;
    const bool isFont = group == gnomeInterface && key == fontKey;
    const bool isTextScale = group == gnomeInterface && key == textScaleKey;
    if (isFont && value.metaType() == QMetaType::fromType<QString>())
        Q_EMIT prefersFont(value.toString());
    const double factor = value.toDouble();
    const bool isFactor = value.metaType() == QMetaType::fromType<double>();
    if (isTextScale && isFactor && factor >= 0.5 && factor <= 3)
        Q_EMIT scalesTexts(factor);
    bool isNumber = false;
    const uint colorScheme = value.toUInt(&isNumber);
    if (isColorScheme && isNumber)
        Q_EMIT prefersDark(preference(colorScheme));
    for (const Source &source : sources) {
        if (source.group != group || source.key != key)
            continue;
        const auto isWished = source.says(value);
        if (isWished && *isWished)
            m_wishes.insert(source.key);
        else if (isWished)
            m_wishes.remove(source.key);
    }
}

// As one desktop may say a wish in several ways, each of them is enough.
void AppearancePortal::tellWishes()
{
    const auto isWished = [this](Wish wish) {
        return std::ranges::any_of(sources, [this, wish](const Source &source) {
            return source.wish == wish && m_wishes.contains(source.key);
        });
    };
    Q_EMIT prefersContrast(isWished(Wish::contrast));
    Q_EMIT prefersStillness(isWished(Wish::stillness));
}

} // namespace quorvale
