// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import Quorvale.Style

// A plain button that is one symbol. Its text is what a screen reader says, its help what the
// pointer brings up.
PlainButton {
    id: button

    /// One of Symbol's names.
    required property int symbol
    /// The side of its square.
    property real symbolSize: 16
    property color symbolColor: Scheme.colors.text
    /// While the pointer is elsewhere.
    property real symbolOpacity: 1
    /// The tooltip; empty for none.
    property string help: ""

    hoverEnabled: true

    contentItem: Symbol {
        color: button.symbolColor
        name: button.symbol
        opacity: button.down ? 0.5 : button.hovered ? 1 : button.symbolOpacity
        size: button.symbolSize
    }

    HoverTip {
        text: button.help
    }
}
