// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import Quorvale.Style

// The button for what the user most likely wants.
BorderedButton {
    id: button

    property bool isLarge: false

    font: isLarge ? Theme.bodySemibold : Theme.bodyMedium
    implicitHeight: isLarge ? Theme.largeControlHeight : Theme.controlHeight
    leftPadding: isLarge ? 16 : 12
    rightPadding: isLarge ? 16 : 12
    textColor: enabled ? Theme.white : Scheme.colors.secondary

    background: Rectangle {
        border.color: button.Scheme.colors.controlBorder
        border.width: button.enabled ? button.Scheme.colors.edge : 0
        color: !button.enabled ? button.Scheme.colors.track
             : button.down ? button.Scheme.colors.accentFillPressed
             : button.hovered ? button.Scheme.colors.accentFillHovered
             : button.Scheme.colors.accentFill
        radius: button.isLarge ? Theme.controlRadius + 2 : Theme.controlRadius

        FocusRing {
            cornerRadius: parent.radius
            visible: button.visualFocus
        }
    }
}
