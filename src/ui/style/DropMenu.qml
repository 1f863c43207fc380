// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Templates as T

// A menu below a button.
T.Menu {
    id: menu

    property ColorScheme scheme: Theme.dark

    bottomPadding: 4
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutsideParent
    implicitHeight: contentItem.implicitHeight + topPadding + bottomPadding
    implicitWidth: 224
    leftPadding: 4
    rightPadding: 4
    topPadding: 4

    background: Rectangle {
        border.color: menu.scheme.popupBorder
        border.width: 1
        color: menu.scheme.popup
        radius: Theme.controlRadius + 2
    }

    contentItem: ListView {
        currentIndex: menu.currentIndex
        implicitHeight: contentHeight
        interactive: false
        model: menu.contentModel
    }

    delegate: DropMenuItem {
        scheme: menu.scheme
    }
}
