// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Templates as T

// For a button's `Keys.forwardTo`: Return and Enter press it, too. One press is one press, however
// long the key is held, and a key that went down elsewhere is none of the button's.
Item {
    id: keys

    required property T.AbstractButton button

    /// Return or Enter has pressed the button.
    signal returned

    Keys.onPressed: event => {
        const isReturn = event.key === Qt.Key_Return || event.key === Qt.Key_Enter;
        event.accepted = isReturn || (event.key === Qt.Key_Space && event.isAutoRepeat);
        if (isReturn && !event.isAutoRepeat)
            keys.returned();
    }

    // The space bar presses when it comes up.
    Keys.onReleased: event => {
        event.accepted = event.key === Qt.Key_Space && (event.isAutoRepeat || !keys.button.pressed);
    }
}
