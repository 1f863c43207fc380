// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "privatebus.h"

#include <QList>
#include <QObject>
#include <QVariantMap>

namespace quorvale::test {

/// A dock, which keeps in mind what it was told to show on the program's icon.
class StandInDock : public QObject
{
    Q_OBJECT

public:
    static constexpr int hidden = -1;

    explicit StandInDock(const PrivateBus &bus)
    {
        auto connection = bus.connection(QStringLiteral("dock"));
        if (!connection.connect({}, {}, QStringLiteral("com.canonical.Unity.LauncherEntry"),
                                QStringLiteral("Update"), this, SLOT(take(QString, QVariantMap))))
            qFatal("The dock hears nothing.");
    }

    /// What was shown, in percent, one after the other.
    const QList<int> &shown() const { return m_shown; }

private Q_SLOTS:
    void take(const QString &entry, const QVariantMap &properties)
    {
        if (entry != QStringLiteral("application://org.quorvale.Quorvale.desktop"))
            qFatal("The dock knows no %s.", qPrintable(entry));
        const double progress = properties.value(QStringLiteral("progress")).toDouble();
        const bool isVisible = properties.value(QStringLiteral("progress-visible")).toBool();
        m_shown << (isVisible ? qRound(progress * 100) : hidden);
    }

private:
    QList<int> m_shown;
};

} // namespace quorvale::test
