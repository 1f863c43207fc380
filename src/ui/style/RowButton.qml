// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import Quorvale.Style

// A button of a list's row. The Tab key stops at those of the current row only.
SymbolButton {
    id: button

    required property ListRow row

    /// How the keyboard came here.
    property int lastFocusReason: Qt.OtherFocusReason

    // Also while it has the focus, until that has gone: it must not be taken from it.
    focusPolicy: row.isCurrent || activeFocus ? Qt.StrongFocus : Qt.ClickFocus
    onActiveFocusChanged: {
        if (activeFocus) {
            lastFocusReason = focusReason;
            row.worked(focusReason);
        } else if (focusReason === Qt.OtherFocusReason && row.activeFocus) {
            // The list gives the keyboard to the row that becomes the current one, and again whenever
            // its index is another.
            forceActiveFocus(lastFocusReason);
        }
    }
    onClicked: row.worked(Qt.OtherFocusReason)
    onVisibleChanged: {
        if (!visible && activeFocus && row.visible)
            row.forceActiveFocus(lastFocusReason);
    }
}
