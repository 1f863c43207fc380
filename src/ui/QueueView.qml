// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Layouts
import Quorvale

// The queue: what is in it, what comes in, and where it goes.
FocusScope {
    id: view

    required property ConverterViewModel model

    ColumnLayout {
        anchors.fill: parent
        spacing: 0

        QueueHeader {
            Layout.fillWidth: true
            model: view.model
        }

        Loader {
            Layout.fillHeight: true
            Layout.fillWidth: true
            sourceComponent: view.model.jobCount === 0 ? emptyQueue : filledQueue
        }

        QueueFooter {
            Layout.fillWidth: true
            model: view.model
        }
    }

    // qmllint disable unqualified
    Component {
        id: emptyQueue

        DropZone {
            model: view.model
        }
    }

    Component {
        id: filledQueue

        JobList {
            model: view.model
        }
    }
    // qmllint enable unqualified
}
