// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick

// The button for what the user most likely wants.
BorderedButton {
    id: button

    property bool isLarge: false

    font: isLarge ? Theme.bodySemibold : Theme.bodyMedium
    implicitHeight: isLarge ? Theme.largeControlHeight : Theme.controlHeight
    leftPadding: isLarge ? 16 : 12
    rightPadding: isLarge ? 16 : 12
    textColor: Theme.white

    background: Rectangle {
        color: button.down ? button.scheme.accentFillPressed
             : button.hovered ? button.scheme.accentFillHovered : button.scheme.accentFill
        radius: button.isLarge ? Theme.controlRadius + 2 : Theme.controlRadius

        FocusRing {
            cornerRadius: parent.radius
            scheme: button.scheme
            visible: button.visualFocus
        }
    }
}
