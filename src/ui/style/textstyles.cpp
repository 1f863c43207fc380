// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "textstyles.h"

#include "desktop/systemlook.h"

#include <QCoreApplication>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QScreen>

#include <algorithm>

namespace quorvale {

namespace {

// Of the base at the default size, in logical pixels.
constexpr double defaultSize = 13;

double pixelSize(const QFont &font)
{
    if (font.pixelSize() > 0)
        return font.pixelSize();
    constexpr double pointsPerInch = 72;
    const QScreen *screen = QGuiApplication::primaryScreen();
    return font.pointSizeF() * (screen ? screen->logicalDotsPerInchY() : 96) / pointsPerInch;
}

} // namespace

TextStyles::TextStyles(QObject *parent) : QObject(parent)
{
    derive(SystemLook::instance().interfaceFont());
}

void TextStyles::setBase(const QFont &base)
{
    if (base == body)
        return;
    derive(base);
    Q_EMIT changed();
}

// The sizes stand here as they are at the default size.
void TextStyles::derive(const QFont &base)
{
    scale = pixelSize(base) / defaultSize;
    const auto style = [&](int size, int weight, int least = 11) {
        QFont font = base;
        if (size != defaultSize)
            font.setPixelSize(std::max(least, qRound(size * scale)));
        font.setWeight(QFont::Weight(weight));
        return font;
    };
    title2Bold = style(17, QFont::Bold);
    title3Bold = style(15, QFont::Bold);
    body = base;
    bodyMedium = style(13, QFont::Medium);
    bodySemibold = style(13, QFont::DemiBold);
    subheadline = style(12, base.weight());
    subheadlineSemibold = style(12, QFont::DemiBold);
    caption = style(11, base.weight());
    sectionLabel = style(10, QFont::Bold, 10);
    sectionLabel.setLetterSpacing(QFont::AbsoluteSpacing, 1.1);
}

void TextStyles::lookUp()
{
    const TextStyles styles;
    for (const QFont &font :
         {styles.title2Bold, styles.title3Bold, styles.body, styles.bodyMedium, styles.bodySemibold,
          styles.subheadline, styles.subheadlineSemibold, styles.caption, styles.sectionLabel}) {
        QFontMetricsF(font).height();
        QCoreApplication::sendPostedEvents();
    }
}

} // namespace quorvale
