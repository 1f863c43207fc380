// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Layouts
import Quorvale
import Quorvale.Style

// Says that videos are being searched for, or what a search has left out.
Item {
    id: line

    property bool isSearching: false
    property int foundCount: 0
    /// A place that is waited for; empty when there is none. And its name as it is shown.
    property string awaitedPlace
    property string legibleAwaitedName
    /// What was left out; empty when nothing was.
    property string notice
    /// Its two parts as they are shown: a path in quotes, and what is said of it.
    property string legiblePlace
    property string verdict

    /// The user does not want to wait for the search any longer.
    signal stopped
    /// The user has read the notice.
    signal dismissed

    property alias stopButton: stopButton
    property alias dismissButton: dismissButton

    readonly property string count: Number(foundCount).toLocaleString(Qt.locale("en_US"), "f", 0)

    // With what is waited for, if anything.
    function progressText(place: string): string {
        const text = "Searching for videos… " + count + " found";
        return place === "" ? text : text + ", waiting for “" + place + "”";
    }

    // Announced when it appears, so this is no alert, which some readers would read once more.
    Accessible.name: isSearching ? "Searching for videos…" : notice
    Accessible.role: Accessible.Grouping
    implicitHeight: row.implicitHeight + row.anchors.topMargin + row.anchors.bottomMargin
    visible: isSearching || notice !== ""

    // Short enough to leave the bar its room in most fonts.
    TextMetrics {
        id: awaitedName

        elide: Qt.ElideMiddle
        elideWidth: Theme.scaled(120)
        font: progress.font
        text: line.legibleAwaitedName
    }

    RowLayout {
        id: row

        anchors.bottomMargin: 12
        anchors.fill: parent
        anchors.leftMargin: 26
        anchors.rightMargin: 26
        anchors.topMargin: 8
        spacing: 12

        TextLine {
            id: progress

            // In steps, so that the bar does not tremble as the number changes.
            readonly property real steadyWidth: Math.ceil(implicitWidth / 24) * 24
            /// What is left beside the button.
            readonly property real room: line.width - row.anchors.leftMargin - row.anchors.rightMargin
                                         - row.spacing - stopButton.implicitWidth

            Accessible.name: line.progressText(line.awaitedPlace)
            Layout.preferredWidth: Math.min(steadyWidth, room)
            color: Theme.current.text
            font: Theme.subheadline
            text: line.progressText(awaitedName.elidedText)
            visible: line.isSearching
            wrapMode: Text.Wrap

            HoverTip {
                text: line.awaitedPlace
            }
        }

        // Shorter than this it would show nothing, as large texts may leave it.
        WaitingLine {
            Accessible.name: "Search for videos"
            Layout.fillWidth: true
            visible: line.isSearching && progress.room - progress.steadyWidth - row.spacing >= 80
        }

        BorderedButton {
            id: stopButton

            Accessible.name: "Stop searching"
            text: "Stop"
            visible: line.isSearching
            onClicked: line.stopped()
            onVisibleChanged: {
                if (!visible)
                    dismissButton.takeOver(stopButton);
            }
        }

        // Of what does not fit the path is shortened, whose ends say enough; the sentence is whole.
        Item {
            Accessible.name: line.notice
            Accessible.role: Accessible.StaticText
            Layout.fillWidth: true
            implicitHeight: verdict.implicitHeight
            implicitWidth: place.implicitWidth + verdict.implicitWidth
            visible: !line.isSearching

            TextLine {
                id: place

                Accessible.ignored: true
                color: Theme.current.text
                elide: Text.ElideMiddle
                font: Theme.subheadline
                maximumLineCount: 1
                text: line.legiblePlace
                width: Math.min(Math.ceil(implicitWidth),
                                Math.max(parent.width / 5, parent.width - Math.ceil(verdict.implicitWidth)))
            }

            TextLine {
                id: verdict

                Accessible.ignored: true
                color: Theme.current.text
                font: Theme.subheadline
                text: line.verdict
                width: Math.min(Math.ceil(implicitWidth), parent.width - x)
                wrapMode: Text.Wrap
                x: Math.ceil(place.contentWidth)
            }

            HoverTip {
                text: place.truncated || place.text + verdict.text !== line.notice ? line.notice : ""
            }
        }

        BorderedButton {
            id: dismissButton

            Accessible.name: "Dismiss the notice"
            text: "Dismiss"
            visible: !line.isSearching
            onClicked: line.dismissed()
        }
    }
}
