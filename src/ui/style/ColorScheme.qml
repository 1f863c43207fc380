// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick

// The colours of one scheme, light or dark. Text colours reach a contrast of 4.5:1 on `window`.
QtObject {
    required property color window
    required property color text
    required property color secondary
    required property color tertiary ///< of symbols that are a cue only
    required property color secondarySymbol ///< keeps its contrast at an opacity of 0.7 too
    required property color separator

    required property color accent
    required property color green
    required property color red
    required property color orange

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
}
