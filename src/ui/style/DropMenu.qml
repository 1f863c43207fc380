// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Templates as T
import Quorvale.Style

// A menu below a button, or where else it is opened. Letters go to the entry that begins so; only
// Return, Enter or the space bar choose it, as no letter is marked.
T.Menu {
    id: dropMenu

    /// Of its entries.
    readonly property real widest: {
        let most = 0;
        for (let i = 0; i < count; ++i)
            most = Math.max(most, (itemAt(i) as Item)?.implicitWidth ?? 0);
        return most;
    }

    // What had the keyboard before, and has it again when nothing else has taken it.
    property Item worked: null

    onAboutToShow: {
        worked = parent.Window.activeFocusItem;
        typeAhead.forget();
    }
    onClosed: {
        const window = parent?.Window.window;
        if (worked?.visible && window && (!window.activeFocusItem || window.activeFocusItem === window.contentItem))
            worked.forceActiveFocus(Qt.PopupFocusReason);
    }

    bottomPadding: 4
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutsideParent
    implicitHeight: contentItem.implicitHeight + topPadding + bottomPadding
    implicitWidth: Math.max(Theme.scaled(224), widest + leftPadding + rightPadding)
    margins: 4
    leftPadding: 4
    rightPadding: 4
    topPadding: 4

    background: PopupGround {}

    TypeAhead {
        id: typeAhead
    }

    contentItem: ListView {
        currentIndex: dropMenu.currentIndex
        focus: true
        implicitHeight: contentHeight
        interactive: false
        model: dropMenu.contentModel

        Keys.onPressed: event => {
            const textAt = index => {
                const entry = dropMenu.itemAt(index) as T.MenuItem;
                return entry?.visible ? entry.text : "";
            };
            const found = typeAhead.find(event.text, event.modifiers, dropMenu.currentIndex, dropMenu.count, textAt);
            event.accepted = found >= 0;
            if (event.accepted)
                dropMenu.currentIndex = found;
        }
    }

    delegate: DropMenuItem {}
}
