// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "standinservice.h"

#include <QDBusVariant>
#include <QVariantMap>

namespace quorvale::test {

/// The file chooser of a desktop portal, which opens when it is asked to.
class StandInPortal : public StandInService
{
public:
    /// What the portal says in its response.
    enum Response : uint { success, cancelled, other };

    explicit StandInPortal(const PrivateBus &bus, uint version = 4)
        : StandInService(
            bus, QStringLiteral("org.freedesktop.portal.Desktop"),
            {{QStringLiteral("Get"), {reply({QVariant::fromValue(QDBusVariant(version))})}},
             {QStringLiteral("OpenFile"), {replyRequest()}},
             {QStringLiteral("Close"), {reply()}}})
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
};

} // namespace quorvale::test
