// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Templates as T

// A menu below a button.
T.Menu {
    id: dropMenu

    property ColorScheme scheme: Theme.dark

    bottomPadding: 4
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutsideParent
    implicitHeight: contentItem.implicitHeight + topPadding + bottomPadding
    implicitWidth: 224
    leftPadding: 4
    rightPadding: 4
    topPadding: 4

    background: Rectangle {
        border.color: dropMenu.scheme.popupBorder
        border.width: 1
        color: dropMenu.scheme.popup
        radius: Theme.controlRadius + 2
    }

    contentItem: ListView {
        currentIndex: dropMenu.currentIndex
        implicitHeight: contentHeight
        interactive: false
        model: dropMenu.contentModel
    }

    // qmllint disable unqualified
    delegate: DropMenuItem {
        scheme: dropMenu.scheme
    }
    // qmllint enable unqualified
}
