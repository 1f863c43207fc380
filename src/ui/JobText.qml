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

    // Of the texts' own fonts. Letters and pictures that another one has to step in for make no row
    // higher, nor do they move the line that the others stand on.
    FontMetrics {
        id: nameMetrics

        font: Theme.bodyMedium
    }

    FontMetrics {
        id: statusMetrics

        font: Theme.subheadline
    }

    FontMetrics {
        id: failureMetrics

        font: Theme.caption2
    }

    ElidedLine {
        id: nameLine

        Accessible.ignored: true
        Layout.fillWidth: true
        Layout.preferredHeight: Math.ceil(nameMetrics.height)
        color: Theme.current.text
        elide: Text.ElideMiddle
        font: nameMetrics.font
        maximumLineCount: 1
        text: column.job.legibleFileName
        whole: column.job.fileName

        transform: Translate {
            y: Math.round(nameMetrics.ascent - nameLine.baselineOffset)
        }
    }

    RowLayout {
        Layout.fillWidth: true
        spacing: 8

        TextLine {
            id: folderLine

            Accessible.ignored: true
            Layout.fillWidth: true
            Layout.maximumWidth: Math.ceil(implicitWidth)
            Layout.preferredHeight: Math.ceil(statusMetrics.height)
            color: Theme.current.secondary
            elide: Text.ElideMiddle
            font: statusMetrics.font
            maximumLineCount: 1
            text: column.job.legibleFolderName

            transform: Translate {
                y: Math.round(statusMetrics.ascent - folderLine.baselineOffset)
            }

            HoverTip {
                text: column.job.sourcePath
            }
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
        value: column.progress
        visible: column.job.isInProgress
    }

    ElidedLine {
        Accessible.ignored: true
        Layout.fillWidth: true
        color: Theme.current.red
        elide: Text.ElideRight
        font: failureMetrics.font
        lineHeight: Math.ceil(failureMetrics.height)
        lineHeightMode: Text.FixedHeight
        maximumLineCount: 2
        text: column.job.legibleFailureReason
        visible: column.job.hasFailed
        whole: column.job.failure
        wrapMode: Text.Wrap
    }
}
