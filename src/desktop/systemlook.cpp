// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "systemlook.h"

#include <QEvent>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QPalette>

#ifdef QT_DBUS_LIB
#include "appearanceportal.h"
#endif

namespace quorvale {

SystemLook::SystemLook(QObject *parent) : QObject(parent)
{
    QCoreApplication::instance()->installEventFilter(this);
#ifdef QT_DBUS_LIB
    connect(new AppearancePortal(this), &AppearancePortal::prefersDark, this,
            [this](std::optional<bool> preference) {
                m_prefersDark = preference;
                Q_EMIT changed();
            });
#endif
}

QColor SystemLook::window() const
{
    return QGuiApplication::palette().color(QPalette::Active, QPalette::Window);
}

bool SystemLook::isWindowDark() const
{
    return window().lightnessF() < 0.5F;
}

QString SystemLook::fixedFamily() const
{
    return QFontDatabase::systemFont(QFontDatabase::FixedFont).family();
}

bool SystemLook::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::ApplicationPaletteChange
        && watched == QCoreApplication::instance())
        Q_EMIT changed();
    return QObject::eventFilter(watched, event);
}

} // namespace quorvale
