// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Layouts
import Quorvale
import Quorvale.Style

// One job: its file, its state, and what can be done with it.
ListRow {
    id: row

    required property ConverterViewModel model
    required property shownJob job
    required property double progress

    /// How far from the left it can be dragged by its handle.
    readonly property real handleReach: content.x + handle.width + content.spacing

    /// Has the row be as high as what it shows now.
    function layOut() {
        text.ensurePolished();
        content.ensurePolished();
    }

    Accessible.description: job.folderName + ", " + job.stateWord
                            + (job.message ? ", " + job.mainMessage : "")
    Accessible.name: job.fileName
    Accessible.role: Accessible.ListItem
    fraction: job.isInProgress ? progress : -1
    implicitHeight: content.implicitHeight + content.anchors.topMargin + content.anchors.bottomMargin

    RowLayout {
        id: content

        anchors.fill: parent
        anchors.leftMargin: 10
        anchors.rightMargin: 10
        anchors.topMargin: 7
        anchors.bottomMargin: 7
        spacing: 12

        Symbol {
            id: handle

            Layout.preferredWidth: Theme.scaled(14)
            color: Theme.current.tertiary
            name: Symbol.Lines
            size: Theme.scaled(13) // which by default puts its lines on whole pixels

            HoverTip {
                text: "Drag to reorder"
            }
        }

        SmoothRectangle {
            Layout.preferredHeight: Theme.scaled(42)
            Layout.preferredWidth: Theme.scaled(42)
            color: Qt.alpha(Theme.current.accent, 0.11)
            radius: Theme.scaled(9)

            Symbol {
                anchors.centerIn: parent
                color: Theme.current.accent
                name: Symbol.Film
                size: Theme.scaled(18)
            }
        }

        JobText {
            id: text

            Layout.fillWidth: true
            job: row.job
            progress: row.progress
        }

        JobControls {
            job: row.job
            model: row.model
            row: row
            visible: !row.job.isInProgress
        }
    }
}
