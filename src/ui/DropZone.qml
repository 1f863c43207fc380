// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Layouts
import Quorvale
import Quorvale.Style

// What an empty queue shows: where to drop, and the buttons for those who would rather choose.
Item {
    id: zone

    required property ConverterViewModel model

    FileDropArea {
        anchors.fill: parent
        model: zone.model
    }

    SmoothRectangle {
        anchors.fill: parent
        anchors.leftMargin: 6 + 20
        anchors.rightMargin: 6 + 20
        anchors.topMargin: 20
        anchors.bottomMargin: 20
        borderColor: zone.model.isDropTargeted ? Theme.current.accent : Theme.current.outline
        borderWidth: zone.model.isDropTargeted ? 2 : 1
        dash: 7
        radius: 18
    }

    ColumnLayout {
        anchors.fill: parent
        anchors.leftMargin: 6
        anchors.rightMargin: 6
        spacing: Theme.spacing

        Item {
            Layout.fillHeight: true
        }

        Item {
            Layout.alignment: Qt.AlignHCenter
            Layout.preferredHeight: 112
            Layout.preferredWidth: 112

            Rectangle {
                anchors.fill: parent
                color: Qt.alpha(Theme.current.accent, 0.1)
                radius: width / 2
            }

            Rectangle {
                anchors.centerIn: parent
                border.color: Qt.alpha(Theme.current.accent, 0.25)
                border.width: 1
                color: "transparent"
                height: 88
                radius: width / 2
                width: 88
            }

            Symbol {
                anchors.centerIn: parent
                color: Theme.current.accent
                name: Symbol.ArrowDownDocFill
                size: 42 // of which the drawing takes 35
            }
        }

        TextLine {
            Layout.alignment: Qt.AlignHCenter
            Layout.topMargin: 12
            color: Theme.current.text
            font: Theme.title3Bold
            text: "Drop videos or folders here"
        }

        TextLine {
            Layout.alignment: Qt.AlignHCenter
            color: Theme.current.secondary
            font: Theme.subheadline
            text: "Queue a single clip or an entire folder tree."
        }

        RowLayout {
            Layout.alignment: Qt.AlignHCenter
            Layout.topMargin: 12
            spacing: Theme.spacing

            BorderedButton {
                text: "Choose Videos"
                onClicked: Qt.callLater(zone.model.chooseFiles) // qmllint disable
            }

            BorderedButton {
                text: "Choose Folder"
                onClicked: Qt.callLater(zone.model.chooseFolder) // qmllint disable
            }
        }

        Item {
            Layout.fillHeight: true
        }
    }
}
