// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Layouts
import Quorvale.Style

// What a row says about its job.
ColumnLayout {
    id: column

    required property string fileName
    required property string folderName
    required property string sourcePath
    required property string stateWord
    required property color stateColor
    required property double progress
    required property bool isInProgress
    required property bool hasFailed
    required property string failure
    required property string failureReason

    spacing: 6

    ElidedLine {
        Accessible.ignored: true
        Layout.fillWidth: true
        color: Theme.current.text
        elide: Text.ElideMiddle
        font: Theme.bodyMedium
        maximumLineCount: 1
        text: column.fileName
    }

    RowLayout {
        Layout.fillWidth: true
        spacing: 8

        TextLine {
            Accessible.ignored: true
            Layout.fillWidth: true
            Layout.maximumWidth: Math.ceil(implicitWidth)
            color: Theme.current.secondary
            elide: Text.ElideMiddle
            font: Theme.caption
            maximumLineCount: 1
            text: column.folderName

            HoverTip {
                text: column.sourcePath
            }
        }

        TextLine {
            Accessible.ignored: true
            color: Theme.current.secondary
            font: Theme.caption
            text: "•"
        }

        TextLine {
            Accessible.ignored: true
            color: column.stateColor
            font: Theme.caption
            text: column.stateWord
        }

        Item {
            Layout.fillWidth: true
        }
    }

    ProgressLine {
        Accessible.name: "Progress of " + column.fileName
        Layout.fillWidth: true
        value: column.progress
        visible: column.isInProgress
    }

    ElidedLine {
        Accessible.ignored: true
        Layout.fillWidth: true
        color: Theme.current.red
        elide: Text.ElideRight
        font: Theme.caption2
        maximumLineCount: 2
        text: column.failureReason
        visible: column.hasFailed
        whole: column.failure
        wrapMode: Text.Wrap
    }
}
