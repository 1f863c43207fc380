// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import Quorvale.Style

// A plain button that is one symbol. Its text is what a screen reader says, its help what the
// pointer brings up.
PlainButton {
    id: button

    required property int symbol
    property real symbolSize: 16
    property color symbolColor: scheme.text
    property real symbolOpacity: 1
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
