// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Templates as T

// A menu below a button.
T.Menu {
    id: dropMenu

    bottomPadding: 4
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutsideParent
    implicitHeight: contentItem.implicitHeight + topPadding + bottomPadding
    implicitWidth: 224
    leftPadding: 4
    rightPadding: 4
    topPadding: 4

    background: PopupGround {}

    contentItem: ListView {
        currentIndex: dropMenu.currentIndex
        implicitHeight: contentHeight
        interactive: false
        model: dropMenu.contentModel
    }

    delegate: DropMenuItem {}
}
