// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Templates as T
import Quorvale.Style

// The ordinary button.
T.Button {
    id: button

    /// Before the text.
    property int symbol: Symbol.None
    /// Of the symbol, too.
    property color textColor: enabled ? Scheme.colors.text : Scheme.colors.secondary

    /// How the keyboard came here the last time; focusReason does not say so any more when the
    /// button has been hidden.
    property int lastFocusReason: Qt.OtherFocusReason

    /// Takes the keyboard from a button that goes, and shows it as that did.
    function takeOver(other: BorderedButton) {
        if (!other.focus)
            return;
        const reason = other.lastFocusReason;
        focus = true;
        focusReason = reason;
        lastFocusReason = reason;
    }

    // Qt 6.4 tells assistive technology no state.
    Accessible.description: enabled ? "" : "unavailable"
    Accessible.name: text
    focusPolicy: Qt.StrongFocus
    font: Theme.body
    implicitHeight: Theme.controlHeight
    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    leftPadding: 12
    rightPadding: 12
    Accessible.onPressAction: {
        if (Reach.includes(button))
            button.clicked();
    }
    onActiveFocusChanged: {
        if (activeFocus)
            lastFocusReason = focusReason;
    }

    Keys.forwardTo: PressKeys {
        button: button
        onReturned: button.clicked()
    }

    background: Rectangle {
        border.color: button.Scheme.colors.controlBorder
        border.width: 1
        color: button.down ? button.Scheme.colors.controlPressed
             : button.hovered ? button.Scheme.colors.controlHovered
             : button.Scheme.colors.control
        radius: Theme.controlRadius

        FocusRing {
            visible: button.visualFocus
        }
    }

    contentItem: ButtonContent {
        color: button.textColor
        font: button.font
        symbol: button.symbol
        text: button.text
    }
}
