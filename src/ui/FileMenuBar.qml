// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import Quorvale
import Quorvale.Style

// The File menu, where a title bar would be: over the empty top of the sidebar, so that it takes no
// room from what is below.
Item {
    id: bar

    required property ConverterViewModel model

    Accessible.name: "Menu bar"
    Accessible.role: Accessible.MenuBar
    Scheme.colors: Theme.dark
    implicitHeight: Theme.menuBarHeight

    Shortcut {
        sequences: ["Alt+F", "F10"]
        onActivated: fileMenu.open() // and the keyboard stays where it is for when that closes
    }

    PlainButton {
        id: fileButton

        Accessible.role: Accessible.ButtonMenu
        anchors.left: parent.left
        anchors.leftMargin: 16 // so that the text begins where the sidebar's does
        anchors.verticalCenter: parent.verticalCenter
        implicitHeight: parent.height - 4
        leftPadding: 8
        rightPadding: 8
        text: "File"
        onClicked: fileMenu.visible ? fileMenu.close() : fileMenu.open()

        background: Rectangle {
            color: fileMenu.visible || fileButton.hovered ? Qt.alpha(Theme.white, 0.11) : "transparent"
            radius: 5

            FocusRing {
                cornerRadius: parent.radius
                gap: -2
                visible: fileButton.visualFocus
            }
        }

        contentItem: Text {
            color: fileMenu.visible || fileButton.hovered ? Theme.white : Theme.dark.secondary
            font: Theme.subheadline
            text: fileButton.text
            textFormat: Text.PlainText
            verticalAlignment: Text.AlignVCenter
        }

        FileMenu {
            id: fileMenu

            model: bar.model
            y: parent.height + 4
        }
    }
}
