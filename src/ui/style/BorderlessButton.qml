// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import Quorvale.Style

// A button that is only its text until the pointer is on it.
BorderedButton {
    id: button

    leftPadding: 8
    rightPadding: 8
    textColor: down ? Scheme.colors.text : Scheme.colors.accent

    background: Rectangle {
        color: button.down ? button.Scheme.colors.rowPressed
             : button.hovered ? button.Scheme.colors.rowHovered : "transparent"
        radius: Theme.controlRadius

        FocusRing {
            visible: button.visualFocus
        }
    }
}
