// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "assistant.h"

#include <QAccessible>

namespace quorvale::test {

namespace {

QAccessibleInterface &interfaceOf(QQuickItem *item)
{
    QAccessibleInterface *found = QAccessible::queryAccessibleInterface(item);
    if (!found)
        qFatal("The item is not told to assistive technology.");
    return *found;
}

} // namespace

Assistant::Assistant(QObject *parent) : QObject(parent)
{
    QAccessible::setActive(true);
}

QStringList Assistant::actions(QQuickItem *item)
{
    return interfaceOf(item).actionInterface()->actionNames();
}

void Assistant::act(QQuickItem *item, const QString &action)
{
    interfaceOf(item).actionInterface()->doAction(action);
}

void Assistant::setValue(QQuickItem *item, double value)
{
    interfaceOf(item).valueInterface()->setCurrentValue(value);
}

QVariant Assistant::value(QQuickItem *item)
{
    const QAccessibleValueInterface *value = interfaceOf(item).valueInterface();
    return value ? value->currentValue() : QVariant();
}

QString Assistant::description(QQuickItem *item)
{
    return interfaceOf(item).text(QAccessible::Description);
}

} // namespace quorvale::test
