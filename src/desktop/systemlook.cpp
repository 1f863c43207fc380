// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "systemlook.h"

#include "plainpalette.h"

#include <QEvent>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QScopedValueRollback>

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
                adaptPalette();
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

void SystemLook::adaptPalette()
{
    const QScopedValueRollback adapting(m_isAdapting, true);
    // One that says of nothing that it was set is the platform's, whatever that has become.
    if (m_desktopsPalette && QGuiApplication::palette() == m_ownPalette)
        QGuiApplication::setPalette(*m_desktopsPalette);
    m_desktopsPalette.reset();
    if (!m_prefersDark || *m_prefersDark == isWindowDark())
        return;
    m_desktopsPalette = QGuiApplication::palette();
    QGuiApplication::setPalette(plainPalette(*m_prefersDark));
    m_ownPalette = QGuiApplication::palette();
}

QString SystemLook::fixedFamily() const
{
    return QFontDatabase::systemFont(QFontDatabase::FixedFont).family();
}

bool SystemLook::eventFilter(QObject *watched, QEvent *event)
{
    const bool isPaletteChange = event->type() == QEvent::ApplicationPaletteChange
                                 && watched == QCoreApplication::instance();
    // Said to each window, also when the palette that it has given is not the one in use.
    const bool isThemeChange = event->type() == QEvent::ThemeChange;
    if ((isPaletteChange || isThemeChange) && !m_isAdapting) {
        adaptPalette();
        Q_EMIT changed();
    }
    return QObject::eventFilter(watched, event);
}

} // namespace quorvale
