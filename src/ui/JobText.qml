// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Layouts
import Quorvale
import Quorvale.Style

// What a row says about its job.
ColumnLayout {
    id: column

    required property shownJob job
    required property double progress

    spacing: 6

    FontMetrics {
        id: messageMetrics

        font: Theme.caption2
    }

    SteadyLine {
        Accessible.ignored: true
        Layout.fillWidth: true
        color: Theme.current.text
        font: Theme.bodyMedium
        text: column.job.legibleFileName
        whole: column.job.fileName
    }

    RowLayout {
        Layout.fillWidth: true
        spacing: 8

        SteadyLine {
            Accessible.ignored: true
            Layout.fillWidth: true
            Layout.maximumWidth: Math.ceil(implicitWidth)
            color: Theme.current.secondary
            font: Theme.subheadline
            text: column.job.legibleFolderName
            whole: column.job.sourcePath
        }

        TextLine {
            Accessible.ignored: true
            color: Theme.current.secondary
            font: Theme.subheadline
            text: "•"
        }

        TextLine {
            Accessible.ignored: true
            color: column.job.isInProgress ? Theme.current.accent
                 : column.job.isCompleted ? Theme.current.green
                 : column.job.hasFailed ? Theme.current.red : Theme.current.secondary
            font: Theme.subheadline
            text: column.job.stateWord
        }

        Item {
            Layout.fillWidth: true
        }
    }

    ProgressLine {
        Accessible.name: "Progress of " + column.job.fileName
        Layout.fillWidth: true
        fraction: column.progress
        visible: column.job.isInProgress
    }

    ElidedLine {
        Accessible.ignored: true
        Layout.fillWidth: true
        color: column.job.hasFailed ? Theme.current.red : Theme.current.secondary
        elide: Text.ElideRight
        font: messageMetrics.font
        lineHeight: Math.ceil(messageMetrics.height)
        lineHeightMode: Text.FixedHeight
        maximumLineCount: 2
        text: column.job.legibleMainMessage
        visible: text !== ""
        whole: column.job.message
        wrapMode: Text.Wrap
    }
}
