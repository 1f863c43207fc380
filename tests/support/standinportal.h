// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "standinservice.h"

#include <QDBusVariant>
#include <QVariantMap>

namespace quorvale::test {

/// The desktop portal: a file chooser, which opens when it is asked to, and the settings, which
/// know the colour scheme or, when that is invalid, nothing.
class StandInPortal : public StandInService
{
public:
    /// What the portal says in its response.
    enum Response : uint { success, cancelled, other };

    /// With the version of its file chooser.
    explicit StandInPortal(const PrivateBus &bus, const QVariant &colorScheme = {},
                           uint version = 4)
        : StandInService(
            bus, QStringLiteral("org.freedesktop.portal.Desktop"),
            {{QStringLiteral("Get"), {reply({wrapped(version)})}},
             {QStringLiteral("OpenFile"), {replyRequest()}},
             {QStringLiteral("Close"), {reply()}},
             {QStringLiteral("Read"),
              {colorScheme.isValid() ? reply({wrapped(wrapped(colorScheme))}) : refuse()}}})
    {
    }

    /// Closes the chooser that was opened last, or the one of the path.
    static Step respond(uint response, const QStringList &uris = {}, const QString &path = {})
    {
        QVariantMap results;
        if (response == success)
            results.insert(QStringLiteral("uris"), uris);
        return signal(path, QStringLiteral("org.freedesktop.portal.Request"),
                      QStringLiteral("Response"), {response, results});
    }

    /// Tells of another value of a setting; what is read stays the same.
    void change(const QString &group, const QString &key, const QVariant &value)
    {
        perform({signal(QStringLiteral("/org/freedesktop/portal/desktop"),
                        QStringLiteral("org.freedesktop.portal.Settings"),
                        QStringLiteral("SettingChanged"), {group, key, wrapped(value)})});
    }
    void changeColorScheme(uint colorScheme)
    {
        change(QStringLiteral("org.freedesktop.appearance"), QStringLiteral("color-scheme"),
               colorScheme);
    }

private:
    static QVariant wrapped(const QVariant &value)
    {
        return QVariant::fromValue(QDBusVariant(value));
    }
};

} // namespace quorvale::test
