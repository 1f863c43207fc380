// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Templates as T
import Quorvale.Style

// A button without a bezel: whatever it holds is the button.
T.Button {
    id: button

    /// Of what the ring goes round.
    property real cornerRadius: Theme.controlRadius
    /// Between the button and the ring.
    property real focusGap: 2

    Accessible.description: enabled ? "" : "unavailable"
    Accessible.name: text
    focusPolicy: Qt.StrongFocus
    font: Theme.body
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    Accessible.onPressAction: {
        if (Reach.includes(button))
            button.clicked();
    }

    Keys.forwardTo: PressKeys {
        button: button
        onReturned: button.clicked()
    }

    background: Item {
        FocusRing {
            cornerRadius: button.cornerRadius
            gap: button.focusGap
            visible: button.visualFocus
        }
    }
}
