// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "accessibleitem.h"

#include "patience.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusVariant>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quorvale::test {

namespace {

constexpr const char *accessible = "org.a11y.atspi.Accessible";
constexpr const char *actionInterface = "org.a11y.atspi.Action";
constexpr const char *component = "org.a11y.atspi.Component";
constexpr const char *textInterface = "org.a11y.atspi.Text";
constexpr const char *properties = "org.freedesktop.DBus.Properties";
constexpr const char *valueInterface = "org.a11y.atspi.Value";

} // namespace

AccessibleItem::Condition AccessibleItem::named(Role role, const QString &name)
{
    return [=](const AccessibleItem &item) {
        return item.role() == role && item.name() == name;
    };
}

AccessibleItem::Condition AccessibleItem::beginning(Role role, const QString &nameBeginning)
{
    return [=](const AccessibleItem &item) {
        return item.role() == role && item.name().startsWith(nameBeginning);
    };
}

QVariantList AccessibleItem::call(const char *interface, const char *method,
                                  const QVariantList &arguments) const
{
    auto message = QDBusMessage::createMethodCall(m_service, m_path, QString::fromLatin1(interface),
                                                  QString::fromLatin1(method));
    message.setArguments(arguments);
    const QDBusMessage reply = m_bus.call(message, QDBus::Block, patience);
    return reply.type() == QDBusMessage::ReplyMessage ? reply.arguments() : QVariantList();
}

QVariant AccessibleItem::property(const char *interface, const char *name) const
{
    const QVariantList reply =
        call(properties, "Get", {QString::fromLatin1(interface), QString::fromLatin1(name)});
    return reply.value(0).value<QDBusVariant>().variant();
}

AccessibleItem::Role AccessibleItem::role() const
{
    return static_cast<Role>(call(accessible, "GetRole").value(0).toUInt());
}

QString AccessibleItem::name() const
{
    return property(accessible, "Name").toString();
}

QString AccessibleItem::description() const
{
    return property(accessible, "Description").toString();
}

quint64 AccessibleItem::states() const
{
    const auto words = qdbus_cast<QList<uint>>(call(accessible, "GetState").value(0));
    return quint64(words.value(1)) << 32 | words.value(0);
}

QRect AccessibleItem::extents() const
{
    constexpr uint onTheScreen = 0;
    const QVariant reply = call(component, "GetExtents", {onTheScreen}).value(0);
    if (!reply.isValid())
        return {};
    const auto argument = reply.value<QDBusArgument>();
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    argument.beginStructure();
    argument >> x >> y >> width >> height;
    argument.endStructure();
    return {x, y, width, height};
}

std::optional<double> AccessibleItem::number(const char *name) const
{
    bool isNumber = false;
    const double number = property(valueInterface, name).toDouble(&isNumber);
    return isNumber ? std::optional(number) : std::nullopt;
}

QString AccessibleItem::text() const
{
    return call(textInterface, "GetText", {0, -1}).value(0).toString();
}

QStringList AccessibleItem::actions() const
{
    QStringList names;
    const int count = property(actionInterface, "NActions").toInt();
    for (int index = 0; index < count; ++index)
        names << call(actionInterface, "GetName", {index}).value(0).toString();
    return names;
}

bool AccessibleItem::act(const QString &action) const
{
    const auto index = static_cast<int>(actions().indexOf(action));
    return index >= 0 && call(actionInterface, "DoAction", {index}).value(0).toBool();
}

void AccessibleItem::setValue(double value) const
{
    call(properties, "Set",
         {QString::fromLatin1(valueInterface), u"CurrentValue"_s,
          QVariant::fromValue(QDBusVariant(value))});
}

QList<AccessibleItem> AccessibleItem::children() const
{
    const QVariant reply = call(accessible, "GetChildren").value(0);
    if (!reply.isValid())
        return {};
    QList<AccessibleItem> children;
    const auto argument = reply.value<QDBusArgument>();
    argument.beginArray();
    while (!argument.atEnd()) {
        QString service;
        QDBusObjectPath path;
        argument.beginStructure();
        argument >> service >> path;
        argument.endStructure();
        children << AccessibleItem(m_bus, service, path.path());
    }
    argument.endArray();
    return children;
}

bool AccessibleItem::visit(const std::function<bool(const AccessibleItem &)> &hasEnough) const
{
    return std::ranges::any_of(children(), [&](const AccessibleItem &child) {
        return child.is(State::showing) && (hasEnough(child) || child.visit(hasEnough));
    });
}

std::optional<AccessibleItem> AccessibleItem::find(const Condition &condition) const
{
    std::optional<AccessibleItem> found;
    visit([&](const AccessibleItem &item) {
        if (condition(item))
            found = item;
        return found.has_value();
    });
    return found;
}

QList<AccessibleItem> AccessibleItem::findAll(const Condition &condition) const
{
    QList<AccessibleItem> found;
    visit([&](const AccessibleItem &item) {
        if (condition(item))
            found << item;
        return false;
    });
    return found;
}

QList<AccessibleItem> AccessibleItem::findAll(Role role) const
{
    return findAll([role](const AccessibleItem &item) { return item.role() == role; });
}

QString toString(const AccessibleItem &item)
{
    return u"role %1 \"%2\" states %3"_s.arg(static_cast<uint>(item.role()))
        .arg(item.name())
        .arg(item.states(), 0, 16);
}

QString describe(const AccessibleItem &root)
{
    QString tree = toString(root) + u'\n';
    for (const AccessibleItem &child : root.children()) {
        for (const QString &below : describe(child).split(u'\n', Qt::SkipEmptyParts))
            tree += u"  "_s + below + u'\n';
    }
    return tree;
}

} // namespace quorvale::test
