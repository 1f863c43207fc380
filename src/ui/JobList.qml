// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Layouts
import Quorvale
import Quorvale.Style

// The jobs in the order in which they are converted.
FocusScope {
    id: list

    required property ConverterViewModel model

    /// Gives the keyboard to the next row whose job has failed.
    function showNextFailed() {
        view.showNextFailed();
    }

    FileDropArea {
        anchors.fill: parent
        model: list.model
    }

    ColumnLayout {
        anchors.fill: parent
        spacing: 0

        ProgressLine {
            Accessible.name: "Progress of the queue"
            Layout.fillWidth: true
            Layout.leftMargin: 26
            Layout.rightMargin: 26
            fraction: list.model.isConverting ? list.model.overallProgress : 0
            visible: list.model.isConverting
        }

        Item {
            Layout.fillHeight: true
            Layout.fillWidth: true

            JobListView {
                id: view

                Keys.forwardTo: [keys]
                anchors.fill: parent
                converter: list.model
                reorder: reorder
            }

            JobListKeys {
                id: keys

                converter: list.model
                view: view
            }

            RowReorder {
                id: reorder

                anchors.fill: parent
                enabled: !list.model.isConverting
                view: view
                onMoved: (from, destination) => list.model.moveJobs([from], destination)
            }

            RunningRow {
                anchors.fill: parent
                converter: list.model
                view: view
            }
        }
    }
}
