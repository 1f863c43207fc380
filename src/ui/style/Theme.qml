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
    readonly property ColorScheme light: SystemLook.hasContrast ? strongLight : usualLight
    readonly property ColorScheme dark: SystemLook.hasContrast ? strongDark : usualDark

    component LightScheme: ColorScheme {
        paletteWindow: SystemLook.window
        ownWindow: "#f0f0f2"
        text: "#1d1d1f"
        secondary: "#58585d"
        tertiary: "#6c6c72"
        secondarySymbol: "#2e2e32"
        separator: "#cacace"
        outline: Qt.alpha("#58585d", 0.2)
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

    component DarkScheme: ColorScheme {
        paletteWindow: SystemLook.window
        ownWindow: "#1f1f23"
        text: "#ffffff"
        secondary: "#aeaeb3"
        tertiary: "#96969c"
        secondarySymbol: "#d2d2d7"
        separator: "#46464c"
        outline: Qt.alpha("#aeaeb3", 0.2)
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

    readonly property ColorScheme usualLight: LightScheme {}
    readonly property ColorScheme usualDark: DarkScheme {}

    // For who wants more contrast.

    readonly property ColorScheme strongLight: LightScheme {
        ownWindow: "#ffffff"
        text: "#000000"
        secondary: "#333337"
        tertiary: "#000000"
        secondarySymbol: "#000000"
        separator: "#000000"
        outline: "#000000"
        accent: "#5f1a8c"
        green: "#0a4a1d"
        red: "#860d0d"
        accentFill: "#7a2aad"
        accentFillHovered: "#6d219d"
        accentFillPressed: "#5c1888"
        controlBorder: "#000000"
        track: "#e6e6ea"
        trackHovered: "#d3d3d8"
        trackPressed: "#c2c2c8"
        popup: "#ffffff"
        popupBorder: "#000000"
        rowCurrent: "#125f1a8c"
        edge: 1
        dividerOpacity: 1
        faded: 0.7
        readable: 7
    }

    readonly property ColorScheme strongDark: DarkScheme {
        ownWindow: "#141417"
        secondary: "#dedee2"
        tertiary: "#ffffff"
        secondarySymbol: "#ffffff"
        separator: "#ffffff"
        outline: "#ffffff"
        accent: "#e6c6ff"
        green: "#6ff083"
        red: "#ffc4c0"
        accentFill: "#7a2aad"
        accentFillHovered: "#6d219d"
        accentFillPressed: "#5c1888"
        control: "#0effffff"
        controlHovered: "#1cffffff"
        controlPressed: "#00ffffff"
        controlBorder: "#ffffff"
        track: "#18ffffff"
        trackHovered: "#28ffffff"
        trackPressed: "#0affffff"
        popup: "#18181c"
        popupBorder: "#ffffff"
        rowCurrent: "#12e6c6ff"
        rowPressed: "#1cffffff"
        edge: 1
        dividerOpacity: 1
        faded: 0.7
        readable: 7
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
