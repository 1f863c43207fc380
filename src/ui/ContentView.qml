// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Controls.Basic
import Quorvale
import QtQuick.Layouts

Item {
    id: view

    required property ConverterViewModel model

    DropArea {
        anchors.fill: parent
        keys: ["text/uri-list"]
        onEntered: view.model.isDropTargeted = true
        onExited: view.model.isDropTargeted = false
        onDropped: drop => {
            view.model.isDropTargeted = false;
            drop.accepted = view.model.handleDrop(drop.urls);
        }
    }

    ColumnLayout {
        anchors.fill: parent
        anchors.margins: 20
        spacing: 14

        Rectangle {
            Layout.fillWidth: true
            Layout.fillHeight: true
            border.width: view.model.isDropTargeted ? 2 : 1
            border.color: view.model.isDropTargeted ? "#8944ab" : "#c7c7cc"
            radius: 9

            Label {
                anchors.centerIn: parent
                visible: view.model.jobCount === 0
                text: "Drop videos or folders here"
            }

            JobList {
                anchors.fill: parent
                anchors.margins: 12
                model: view.model
            }
        }

        RowLayout {
            Layout.fillWidth: true
            spacing: 12

            ComboBox {
                Accessible.name: "Output format"
                Layout.preferredWidth: 170
                model: view.model.codecLabels
                currentIndex: view.model.codecIndex
                onActivated: index => view.model.chooseCodec(index)
            }

            Button {
                objectName: "destinationButton"
                text: "Save to…"
                onClicked: view.model.chooseDestination()
            }

            Label {
                Layout.fillWidth: true
                elide: Text.ElideMiddle
                text: view.model.destinationPath
                textFormat: Text.PlainText
            }

            Button {
                objectName: "convertButton"
                visible: !view.model.isConverting
                enabled: view.model.jobCount > 0
                text: "Convert"
                onClicked: view.model.start()
            }

            Button {
                objectName: "cancelButton"
                visible: view.model.isConverting
                text: "Cancel"
                onClicked: view.model.cancel()
            }
        }
    }

    AlertDialog {
        model: view.model
    }
}
