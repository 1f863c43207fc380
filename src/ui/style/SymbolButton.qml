// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Layouts
import Quorvale.Style

// A plain button that is one symbol. Its text is what a screen reader says and the pointer brings
// up. It can be pressed beyond the symbol, in Theme.target at least, but in a layout it takes the
// symbol's room only.
PlainButton {
    id: button

    /// One of Symbol's names.
    required property int symbol
    /// The side of its square.
    property real symbolSize: Theme.scaled(16)
    property color symbolColor: Scheme.colors.text
    /// While the pointer is elsewhere.
    property real symbolOpacity: 1
    /// How far beyond the symbol it can be pressed; to be divided otherwise where another is close.
    property real leftReach: verticalReach
    property real rightReach: verticalReach
    readonly property real verticalReach: Math.max(0, Theme.target - symbolSize) / 2

    Layout.bottomMargin: -verticalReach
    Layout.leftMargin: -leftReach
    Layout.rightMargin: -rightReach
    Layout.topMargin: -verticalReach
    bottomInset: verticalReach
    bottomPadding: verticalReach
    hoverEnabled: true
    leftInset: leftReach
    leftPadding: leftReach
    rightInset: rightReach
    rightPadding: rightReach
    topInset: verticalReach
    topPadding: verticalReach

    contentItem: Symbol {
        color: button.symbolColor
        name: button.symbol
        opacity: button.down ? 0.5 : button.hovered ? 1 : button.symbolOpacity
        size: button.symbolSize
    }

    HoverTip {
        text: button.text
    }
}
