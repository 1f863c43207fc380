// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick

// A button that is only its text until the pointer is on it.
BorderedButton {
    id: button

    leftPadding: 8
    rightPadding: 8
    textColor: scheme.accent

    background: Rectangle {
        color: button.down ? button.scheme.controlPressed
             : button.hovered ? button.scheme.rowHovered : "transparent"
        radius: Theme.controlRadius

        FocusRing {
            scheme: button.scheme
            visible: button.visualFocus
        }
    }
}
