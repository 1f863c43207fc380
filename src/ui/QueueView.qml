// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Layouts
import Quorvale

// The queue: what is in it, what comes in, and where it goes.
FocusScope {
    id: view

    required property ConverterViewModel model

    implicitWidth: header.implicitWidth

    ColumnLayout {
        anchors.fill: parent
        spacing: 0

        QueueHeader {
            id: header

            Layout.fillWidth: true
            model: view.model
        }

        Loader {
            id: middle

            // By name, so that the list is read when there first is one.
            readonly property string part:
                view.model.jobCount === 0 ? "DropZone.qml" : "JobList.qml"

            Layout.fillHeight: true
            Layout.fillWidth: true
            onPartChanged: setSource(part, {"model": view.model})
        }

        // Below the rows, which stay where they are when it comes.
        SearchLine {
            id: searchLine

            Layout.fillWidth: true
            awaitedPlace: view.model.searches.awaitedPlace
            foundCount: view.model.searches.foundCount
            isSearching: view.model.searches.isLong
            legibleAwaitedName: view.model.searches.legibleAwaitedName
            legiblePlace: view.model.searches.legiblePlace
            notice: view.model.searches.notice
            verdict: view.model.searches.verdict
            onDismissed: view.model.searches.clearNotice()
            onStopped: view.model.searches.stop()
            onVisibleChanged: {
                if (!visible) {
                    header.takeOver(searchLine.stopButton);
                    header.takeOver(searchLine.dismissButton);
                }
            }
        }

        FailureLine {
            id: failureLine

            Layout.fillWidth: true
            failures: view.model.failures
            onNextAsked: (middle.item as JobList)?.showNextFailed()
            onVisibleChanged: {
                if (!visible) {
                    header.takeOver(failureLine.nextButton);
                    header.takeOver(failureLine.dismissButton);
                }
            }
        }

        QueueFooter {
            Layout.fillWidth: true
            model: view.model
        }
    }
}
