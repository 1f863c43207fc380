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

    Accessible.name: "Save to " + destination
    onClicked: Qt.callLater(model.chooseDestination) // qmllint disable

    contentItem: RowLayout {
        opacity: button.down ? 0.6 : 1
        spacing: 10

        Symbol {
            color: Theme.current.accent
            name: Symbol.FolderFill
            size: 18
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
                text: button.destination
            }
        }
    }
}
