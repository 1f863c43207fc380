// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Layouts
import Quorvale
import Quorvale.Style

// The queue's title and counts, and the buttons that add to it.
Item {
    id: header

    required property ConverterViewModel model

    readonly property string subtitle: model.jobCount === 0
        ? "Add AV1, MP4, MKV, WebM, or MOV files"
        : model.jobCount + " video" + (model.jobCount === 1 ? "" : "s")
          + " · " + model.completedCount + " complete"

    /// Takes the keyboard from a button that goes.
    function takeOver(button: BorderedButton) {
        folderButton.takeOver(button);
    }

    /// What the title and the buttons need beside each other. So that nothing jumps, counts are rather
    /// shortened as they grow, and room is kept for the button that comes and goes.
    readonly property real lineWidth:
        Math.max(title.implicitWidth + clearButton.wholeWidth + buttons.spacing,
                 model.jobCount === 0 ? hint.implicitWidth : 0)
        + row.columnSpacing + folderButton.implicitWidth + buttons.spacing + addButton.implicitWidth

    readonly property real lineRoom: width - row.anchors.leftMargin - row.anchors.rightMargin

    implicitHeight: row.implicitHeight + row.anchors.topMargin + row.anchors.bottomMargin
    implicitWidth: lineWidth + row.anchors.leftMargin + row.anchors.rightMargin

    GridLayout {
        id: row

        anchors.bottomMargin: 20
        anchors.fill: parent
        anchors.leftMargin: 26
        anchors.rightMargin: 26
        anchors.topMargin: 27
        columnSpacing: Theme.spacing
        // The buttons below the title where large texts leave no room beside it.
        columns: header.lineWidth <= header.lineRoom ? 2 : 1
        rowSpacing: 12

        ColumnLayout {
            Layout.fillWidth: true
            spacing: 3

            TextLine {
                id: title

                Layout.fillWidth: true
                Accessible.role: Accessible.Heading
                color: Theme.current.text
                elide: Text.ElideRight
                font: Theme.title2Bold
                text: "Conversion Queue"
            }

            TextLine {
                id: hint

                Layout.fillWidth: true
                color: Theme.current.secondary
                elide: Text.ElideRight
                font: Theme.subheadline
                text: header.subtitle
            }
        }

        RowLayout {
            id: buttons

            Layout.alignment: Qt.AlignRight
            spacing: Theme.spacing

            BorderlessButton {
                id: clearButton

                readonly property real wholeWidth: implicitContentWidth + leftPadding + rightPadding

                // Shortened where the largest texts leave no room for it there, either.
                implicitWidth: Math.min(wholeWidth, header.lineRoom - Math.ceil(folderButton.implicitWidth)
                                                    - Math.ceil(addButton.implicitWidth) - 2 * buttons.spacing)
                text: "Clear Completed"
                visible: header.model.completedCount > 0 && !header.model.isConverting
                onClicked: header.model.clearCompleted()
                onVisibleChanged: {
                    if (!visible)
                        folderButton.takeOver(clearButton);
                }
            }

            BorderedButton {
                id: folderButton

                symbol: Symbol.FolderBadgePlus
                text: "Folder"
                onClicked: Qt.callLater(header.model.chooseFolder) // qmllint disable
            }

            ProminentButton {
                id: addButton

                symbol: Symbol.Plus
                text: "Add Videos"
                onClicked: Qt.callLater(header.model.chooseFiles) // qmllint disable
            }
        }
    }
}
