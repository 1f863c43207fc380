// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Layouts
import Quorvale
import Quorvale.Style

// Says how many videos have failed, and leads from one to the next.
Item {
    id: line

    required property FailureNotice failures

    /// The user wants to see the next one.
    signal nextAsked

    property alias nextButton: nextButton
    property alias dismissButton: dismissButton

    implicitHeight: row.implicitHeight + row.anchors.topMargin + row.anchors.bottomMargin
    visible: failures.text !== ""

    RowLayout {
        id: row

        anchors.bottomMargin: 12
        anchors.fill: parent
        anchors.leftMargin: 26
        anchors.rightMargin: 26
        anchors.topMargin: 8
        spacing: 12

        TextLine {
            Layout.fillWidth: true
            color: Theme.current.text
            font: Theme.subheadline
            text: line.failures.text
            wrapMode: Text.Wrap
        }

        BorderedButton {
            id: nextButton

            Accessible.name: "Show the next failed video"
            text: "Show Next"
            onClicked: line.nextAsked()

            HoverTip {
                text: next.nativeText
            }
        }

        BorderedButton {
            id: dismissButton

            Accessible.name: "Dismiss the count of failed videos"
            text: "Dismiss"
            onClicked: line.failures.dismiss()
        }
    }

    // F3, as in searches for a text.
    Shortcut {
        id: next

        enabled: line.visible
        sequence: "F3"
        onActivated: line.nextAsked()
    }
}
