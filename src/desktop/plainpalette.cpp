// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "plainpalette.h"

#include <QColor>

namespace quorvale {

QPalette plainPalette(bool isDark)
{
    // All other colours follow from those of buttons and windows.
    QPalette palette = isDark ? QPalette(QColor(0x3a, 0x3a, 0x40), QColor(0x1f, 0x1f, 0x23))
                              : QPalette(QColor(0xf5, 0xf5, 0xf7), QColor(0xf0, 0xf0, 0xf2));
    const QColor text = palette.color(QPalette::Active, QPalette::Text);
    const QColor faint(isDark ? 0x8e : 0x76, isDark ? 0x8e : 0x76, isDark ? 0x94 : 0x7c);
    if (isDark)
        palette.setColor(QPalette::Base, QColor(0x17, 0x17, 0x1a));
    palette.setColor(QPalette::AlternateBase, palette.color(QPalette::Window));
    palette.setColor(QPalette::ToolTipBase, palette.color(QPalette::Button));
    palette.setColor(QPalette::ToolTipText, text);
    palette.setColor(QPalette::PlaceholderText, faint);
    palette.setColor(QPalette::Highlight, QColor(0x9a, 0x3f, 0xcb));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, isDark ? QColor(0xcd, 0x8c, 0xf7) : QColor(0x8e, 0x35, 0xc4));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, faint);
    return palette;
}

} // namespace quorvale
