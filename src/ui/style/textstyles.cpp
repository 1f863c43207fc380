// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "textstyles.h"

#include <QCoreApplication>
#include <QFontMetricsF>

namespace quorvale {

namespace {

// The desktop's, in logical pixels.
QFont interfaceFont(int size, QFont::Weight weight = QFont().weight())
{
    QFont font;
    font.setPixelSize(size);
    font.setWeight(weight);
    return font;
}

} // namespace

TextStyles::TextStyles(QObject *parent)
    : QObject(parent), title2Bold(interfaceFont(17, QFont::Bold)),
      title3Bold(interfaceFont(15, QFont::Bold)), body(interfaceFont(13)),
      bodyMedium(interfaceFont(13, QFont::Medium)),
      bodySemibold(interfaceFont(13, QFont::DemiBold)), subheadline(interfaceFont(11)),
      subheadlineSemibold(interfaceFont(11, QFont::DemiBold)), caption(interfaceFont(10)),
      sectionLabel(interfaceFont(10, QFont::Bold))
{
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
