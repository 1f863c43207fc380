// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "standinservice.h"

#include <QDBusVariant>

namespace quorvale::test {

/// The settings of a desktop portal, which know the colour scheme or, when that is invalid,
/// nothing.
class StandInSettings : public StandInService
{
public:
    explicit StandInSettings(const PrivateBus &bus, const QVariant &colorScheme = {})
        : StandInService(
            bus, QStringLiteral("org.freedesktop.portal.Desktop"),
            {{QStringLiteral("Read"),
              {colorScheme.isValid() ? reply({wrapped(wrapped(colorScheme))}) : refuse()}}})
    {
    }

    /// Tells of another value of a setting; what is read stays the same.
    void change(const QString &group, const QString &key, const QVariant &value) const
    {
        perform({signal(QStringLiteral("/org/freedesktop/portal/desktop"),
                        QStringLiteral("org.freedesktop.portal.Settings"),
                        QStringLiteral("SettingChanged"), {group, key, wrapped(value)})});
    }
    void changeColorScheme(uint colorScheme) const
    {
        change(QStringLiteral("org.freedesktop.appearance"), QStringLiteral("color-scheme"),
               colorScheme);
    }

    QList<QVariantList> reads() const { return calls(QStringLiteral("Read")); }

private:
    static QVariant wrapped(const QVariant &value)
    {
        return QVariant::fromValue(QDBusVariant(value));
    }
};

} // namespace quorvale::test
