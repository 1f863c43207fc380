// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "systemlook.h"

#include "fontdescription.h"
#include "plainpalette.h"
#include "windowrefresh.h"

#include <QApplication>
#include <QEvent>
#include <QFontDatabase>
#include <QPointer>
#include <QScopedValueRollback>
#include <QScreen>

#ifdef QT_DBUS_LIB
#include "appearanceportal.h"
#endif

using namespace Qt::StringLiterals;

namespace quorvale {

namespace {

// What Qt takes where no platform theme says anything (QGenericUnixTheme).
bool isLastResort(const QFont &font)
{
    return font.family() == u"Sans Serif"_s && font.pointSize() == 9;
}

} // namespace

SystemLook &SystemLook::instance()
{
    static QPointer<SystemLook> look;
    if (!look)
        look = new SystemLook(QCoreApplication::instance());
    return *look;
}

SystemLook::SystemLook(QObject *parent) : QObject(parent)
{
    QCoreApplication::instance()->installEventFilter(this);
    for (const QScreen *screen : QGuiApplication::screens())
        connect(screen, &QScreen::logicalDotsPerInchChanged, this, refreshSizes);
#ifdef QT_DBUS_LIB
    auto *settings = new AppearancePortal(this);
    connect(settings, &AppearancePortal::prefersDark, this, [this](std::optional<bool> preference) {
        m_prefersDark = preference;
        adaptPalette();
        Q_EMIT changed();
    });
    connect(settings, &AppearancePortal::prefersFont, this, &SystemLook::adaptFont);
    connect(settings, &AppearancePortal::scalesTexts, this, [this](double factor) {
        m_textScale = factor;
        Q_EMIT fontChanged();
    });
    connect(settings, &AppearancePortal::prefersContrast, this, &SystemLook::setContrast);
    connect(settings, &AppearancePortal::prefersStillness, this,
            [this](bool isWished) { setAnimates(!isWished); });
    m_isKnown = settings->hasAnswered();
    connect(settings, &AppearancePortal::answered, this, [this] { m_isKnown = true; });
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
    if (m_prefersDark && *m_prefersDark != isWindowDark()) {
        m_desktopsPalette = QGuiApplication::palette();
        QGuiApplication::setPalette(plainPalette(*m_prefersDark));
        m_ownPalette = QGuiApplication::palette();
    }
    refreshFrames();
}

void SystemLook::setAnimates(bool animates)
{
    if (animates == m_animates)
        return;
    m_animates = animates;
    Q_EMIT changed();
}

void SystemLook::setContrast(bool hasContrast)
{
    if (hasContrast == m_hasContrast)
        return;
    m_hasContrast = hasContrast;
    Q_EMIT changed();
}

QFont SystemLook::interfaceFont() const
{
    QFont font = QGuiApplication::font();
    constexpr double defaultSize = 9.75; // in points, which is 13 pixels
    if (isLastResort(font))
        font.setPointSizeF(defaultSize);
    // X11 desktops say it to all programs by the screen's resolution, from which Qt has it.
    if (QGuiApplication::platformName() == u"xcb"_s)
        return font;
    if (font.pixelSize() > 0)
        font.setPixelSize(qRound(font.pixelSize() * m_textScale));
    else
        font.setPointSizeF(font.pointSizeF() * m_textScale);
    return font;
}

void SystemLook::adaptFont(const QString &description)
{
    const QFont current = QGuiApplication::font();
    const auto font = describedFont(description);
    if (!font || (!isLastResort(current) && current != m_ownFont))
        return;
    QApplication::setFont(*font);
    m_ownFont = QGuiApplication::font();
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
    const bool isFontChange =
        event->type() == QEvent::ApplicationFontChange && watched == QCoreApplication::instance();
    if (isFontChange || isThemeChange)
        Q_EMIT fontChanged();
    return QObject::eventFilter(watched, event);
}

} // namespace quorvale
