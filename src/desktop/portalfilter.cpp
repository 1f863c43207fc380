// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "portalfilter.h"

#include "videonamefilter.h"

#include <QDBusArgument>
#include <QDBusMetaType>
#include <QList>
#include <QString>

using namespace Qt::StringLiterals;

namespace quorvale {

// What the portal calls a(sa(us)): labels, each with its rules.

struct PortalFilterRule
{
    static constexpr uint isPattern = 0; // the other kind is a MIME type

    uint kind = isPattern;
    QString pattern;
};

struct PortalFilter
{
    QString label;
    QList<PortalFilterRule> rules;
};

static QDBusArgument &operator<<(QDBusArgument &argument, const PortalFilterRule &rule)
{
    argument.beginStructure();
    argument << rule.kind << rule.pattern;
    argument.endStructure();
    return argument;
}

static const QDBusArgument &operator>>(const QDBusArgument &argument, PortalFilterRule &rule)
{
    argument.beginStructure();
    argument >> rule.kind >> rule.pattern;
    argument.endStructure();
    return argument;
}

static QDBusArgument &operator<<(QDBusArgument &argument, const PortalFilter &filter)
{
    argument.beginStructure();
    argument << filter.label << filter.rules;
    argument.endStructure();
    return argument;
}

static const QDBusArgument &operator>>(const QDBusArgument &argument, PortalFilter &filter)
{
    argument.beginStructure();
    argument >> filter.label >> filter.rules;
    argument.endStructure();
    return argument;
}

QVariant portalVideoFilters()
{
    qDBusRegisterMetaType<PortalFilterRule>();
    qDBusRegisterMetaType<QList<PortalFilterRule>>();
    qDBusRegisterMetaType<PortalFilter>();
    qDBusRegisterMetaType<QList<PortalFilter>>();
    PortalFilter videos{.label = u"Videos"_s, .rules = {}};
    for (const QString &pattern : videoNamePatterns())
        videos.rules << PortalFilterRule{.pattern = pattern};
    return QVariant::fromValue(QList{videos});
}

} // namespace quorvale
