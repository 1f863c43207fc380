// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "standinservice.h"

#include <QDBusMetaType>
#include <QDBusVariant>
#include <QMap>
#include <QVariantMap>

namespace quorvale::test {

/// The desktop portal: a file chooser, which opens when it is asked to, and settings.
class StandInPortal : public StandInService
{
public:
    /// What the portal says in its response.
    enum Response : uint { success, cancelled, other };

    /// The values of their keys, by group.
    using Settings = QMap<QString, QVariantMap>;

    static constexpr auto appearance = "org.freedesktop.appearance";
    static constexpr auto gnomeInterface = "org.gnome.desktop.interface";

    explicit StandInPortal(const PrivateBus &bus, const Settings &settings)
        : StandInPortal(bus, settings, 4)
    {
    }

    /// With the version of its file chooser; settings that know the colour scheme or, when that is
    /// invalid, nothing.
    explicit StandInPortal(const PrivateBus &bus, const QVariant &colorScheme = {},
                           uint version = 4)
        : StandInPortal(bus,
                        colorScheme.isValid()
                            ? Settings{{QString::fromLatin1(appearance),
                                        {{QStringLiteral("color-scheme"), colorScheme}}}}
                            : Settings(),
                        version)
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

    /// Answers ReadAll.
    static Step replySettings(const Settings &settings)
    {
        qDBusRegisterMetaType<Settings>();
        return reply({QVariant::fromValue(settings)});
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
        change(QString::fromLatin1(appearance), QStringLiteral("color-scheme"), colorScheme);
    }

private:
    StandInPortal(const PrivateBus &bus, const Settings &settings, uint version)
        : StandInService(bus, QStringLiteral("org.freedesktop.portal.Desktop"),
                         {{QStringLiteral("Get"), {reply({wrapped(version)})}},
                          {QStringLiteral("OpenFile"), {replyRequest()}},
                          {QStringLiteral("Close"), {reply()}},
                          {QStringLiteral("ReadAll"), {replySettings(settings)}}})
    {
    }

    static QVariant wrapped(const QVariant &value)
    {
        return QVariant::fromValue(QDBusVariant(value));
    }
};

} // namespace quorvale::test
