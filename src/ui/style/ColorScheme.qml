// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick

// The colours of one scheme, light or dark. Text colours reach a contrast of 4.5:1 on `window`.
QtObject {
    /// The palette's where every text can be read on it, else the scheme's own.
    readonly property color window:
        Math.min(contrast(text, paletteWindow), contrast(secondary, paletteWindow),
                 contrast(accent, paletteWindow), contrast(green, paletteWindow),
                 contrast(red, paletteWindow)) >= 4.5 ? paletteWindow : ownWindow
    required property color paletteWindow
    required property color ownWindow
    required property color text
    required property color secondary
    required property color tertiary ///< of symbols that are a cue only
    required property color secondarySymbol ///< keeps its contrast at an opacity of 0.7 too
    required property color separator

    required property color accent
    required property color green
    required property color red

    /// Under white text.
    required property color accentFill
    required property color accentFillHovered
    required property color accentFillPressed

    required property color control
    required property color controlHovered
    required property color controlPressed
    required property color controlBorder
    required property color track ///< what of a bar or a switch is not filled

    required property color popup
    required property color popupBorder
    required property color rowHovered

    // As the Web Content Accessibility Guidelines 2.1 define it, 1 to 21.
    function contrast(a: color, b: color): real {
        const first = luminance(a);
        const second = luminance(b);
        return (Math.max(first, second) + 0.05) / (Math.min(first, second) + 0.05);
    }

    function luminance(color: color): real {
        const linear = part => part <= 0.04045 ? part / 12.92 : Math.pow((part + 0.055) / 1.055, 2.4);
        return 0.2126 * linear(color.r) + 0.7152 * linear(color.g) + 0.0722 * linear(color.b);
    }
}
