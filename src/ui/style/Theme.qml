// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

pragma Singleton

import QtQuick
import Quorvale.Style

// The window's colours, text styles and metrics. Lengths are logical pixels.
TextStyles {
    id: theme

    base: SystemLook.font

    /// A length that grows and shrinks with the texts, by what it is at their default size.
    function scaled(length: real): int {
        return Math.round(length * scale);
    }

    /// Whether what changes may move there; it jumps otherwise.
    readonly property bool animates: SystemLook.animates

    readonly property ColorScheme current: SystemLook.isDark ? dark : light

    readonly property ColorScheme light: ColorScheme {
        paletteWindow: SystemLook.window
        ownWindow: "#f0f0f2"
        text: "#1d1d1f"
        secondary: "#58585d"
        tertiary: "#6c6c72"
        secondarySymbol: "#2e2e32"
        separator: "#cacace"
        accent: "#8e35c4"
        green: "#146c2e"
        red: "#b91c1c"
        accentFill: "#9a3fcb"
        accentFillHovered: "#8e35c4"
        accentFillPressed: "#7a2aad"
        control: "#ffffff"
        controlHovered: "#f0ecf4"
        controlPressed: "#e4dfe9"
        controlBorder: "#c2c2c8"
        track: "#d3d3d8"
        trackHovered: "#c2c2c8"
        trackPressed: "#b0b0b7"
        popup: "#fbfbfc"
        popupBorder: "#c2c2c8"
        rowHovered: "#0c000000"
        rowCurrent: "#128e35c4"
        rowPressed: "#1a000000"
    }

    readonly property ColorScheme dark: ColorScheme {
        paletteWindow: SystemLook.window
        ownWindow: "#1f1f23"
        text: "#ffffff"
        secondary: "#aeaeb3"
        tertiary: "#96969c"
        secondarySymbol: "#d2d2d7"
        separator: "#46464c"
        accent: "#cd8cf7"
        green: "#32d74b"
        red: "#ff918b"
        accentFill: "#9a3fcb"
        accentFillHovered: "#a04bd2"
        accentFillPressed: "#8432b3"
        control: "#18ffffff"
        controlHovered: "#25ffffff"
        controlPressed: "#0affffff"
        controlBorder: "#33ffffff"
        track: "#33ffffff"
        trackHovered: "#45ffffff"
        trackPressed: "#22ffffff"
        popup: "#2c2c33"
        popupBorder: "#4a4a52"
        rowHovered: "#10ffffff"
        rowCurrent: "#12cd8cf7"
        rowPressed: "#20ffffff"
    }

    readonly property color purple: "#bf5af2"
    readonly property color blue: "#0a84ff"
    readonly property color orange: "#ff9f0a"
    readonly property color white: "#ffffff"
    readonly property color shadow: "#59000000"
    readonly property color faintShadow: "#4d000000"
    readonly property color veil: "#59000000" ///< over what has to wait
    readonly property color knobPressed: "#e8e8ec"
    readonly property color knobBorder: "#33000000"
    readonly property color sidebarStart: Qt.rgba(0.08, 0.10, 0.16, 1)
    readonly property color sidebarEnd: Qt.rgba(0.10, 0.07, 0.16, 1)

    readonly property font captionFixed: Qt.font({
        family: SystemLook.fixedFamily,
        pixelSize: caption.pixelSize,
        weight: Font.DemiBold
    })

    readonly property int spacing: 8
    readonly property int controlHeight: Math.max(target, scaled(26))
    readonly property int largeControlHeight: scaled(34)
    readonly property int controlRadius: 6
    /// Of the File menu's bar, over the sidebar.
    readonly property int menuBarHeight: Math.max(target + 4, scaled(28))
    /// The least width and height of what can be pressed.
    readonly property int target: 24
}
