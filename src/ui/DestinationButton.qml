// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Layouts
import Quorvale
import Quorvale.Style

// Shows the output folder and lets the user choose another.
PlainButton {
    id: button

    required property ConverterViewModel model

    readonly property string destination:
        model.hasDestination ? model.destinationPath : "Choose destination…"

    /// How far its ground goes beyond what stands on it, which stands where it would without.
    readonly property real rim: 6

    Accessible.name: "Save to " + destination
    Layout.margins: -rim
    focusGap: 0
    padding: rim
    onClicked: Qt.callLater(model.chooseDestination) // qmllint disable

    background: Rectangle {
        color: button.down ? Theme.current.rowPressed
             : button.hovered ? Theme.current.rowHovered : "transparent"
        radius: button.cornerRadius

        FocusRing {
            cornerRadius: parent.radius
            gap: button.focusGap
            visible: button.visualFocus
        }
    }

    contentItem: RowLayout {
        opacity: button.down ? 0.6 : 1
        spacing: 10

        Symbol {
            color: Theme.current.accent
            name: Symbol.FolderFill
            size: Theme.scaled(18)
        }

        ColumnLayout {
            Layout.fillWidth: true
            spacing: 2

            TextLine {
                Accessible.ignored: true
                color: Theme.current.secondary
                font: Theme.caption
                text: "Save to"
            }

            ElidedLine {
                Layout.fillWidth: true
                Accessible.ignored: true
                color: Theme.current.text
                elide: Text.ElideMiddle
                font: Theme.body
                maximumLineCount: 1
                text: button.model.hasDestination ? button.model.legibleDestinationPath : button.destination
                whole: button.destination
            }
        }
    }
}
