// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "scheme.h"

#include <QQmlEngine>
#include <QQuickItem>

namespace quorvale {

namespace {

// What the object stands in. The item of a popup stands in the window's overlay, but the popup
// itself where it was declared.
QObject *outerOf(const QObject *object)
{
    const auto *item = qobject_cast<const QQuickItem *>(object);
    if (!item)
        return object->property("parent").value<QQuickItem *>();
    if (item->parent() && item->parent()->inherits("QQuickPopup"))
        return item->parent();
    return item->parentItem();
}

} // namespace

Scheme::Scheme(QObject *owner) : QObject(owner)
{
    const bool isItem = qobject_cast<QQuickItem *>(owner);
    connect(owner, isItem ? SIGNAL(parentChanged(QQuickItem *)) : SIGNAL(parentChanged()), this,
            SLOT(follow()));
    follow();
}

void Scheme::follow()
{
    QObject *outer = outerOf(parent());
    // What stands nowhere any more is about to go, and keeps its colours until then.
    if (!outer)
        return;
    auto *scheme = qobject_cast<Scheme *>(qmlAttachedPropertiesObject<Scheme>(outer));
    if (scheme == m_outer)
        return;
    if (m_outer)
        m_outer->disconnect(this);
    m_outer = scheme;
    connect(m_outer, &Scheme::changed, this, &Scheme::changed);
    Q_EMIT changed();
}

ColorScheme *Scheme::colors() const
{
    if (m_given)
        return m_given;
    return m_outer ? m_outer->colors() : nullptr;
}

void Scheme::setColors(ColorScheme *colors)
{
    if (colors == m_given)
        return;
    m_given = colors;
    Q_EMIT changed();
}

} // namespace quorvale
