// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Layouts
import Quorvale
import Quorvale.Style

// One job: its file, its state, and what can be done with it.
Item {
    id: row

    required property ConverterViewModel model
    required property shownJob job
    required property double progress

    /// Whether the row is the one that the keyboard works on.
    property bool isCurrent: false
    /// Whether the row is a picture under the pointer that drags it.
    property bool isLifted: false
    /// How far the row gives way to the one that is dragged.
    property real shift: 0
    property bool glides: false

    readonly property int percentage: Math.trunc(progress * 100)
    Accessible.description: job.folderName + ", " + job.stateWord
                            + (job.isInProgress ? " " + percentage + "%" : "")
                            + (job.hasFailed ? ", " + job.failureReason : "")
    Accessible.name: job.fileName
    Accessible.role: Accessible.ListItem
    // Until the focus has gone, too: it must not be taken from an item that has it.
    activeFocusOnTab: isCurrent || activeFocus
    implicitHeight: content.implicitHeight + content.anchors.topMargin + content.anchors.bottomMargin

    transform: Translate {
        y: row.shift

        Behavior on y {
            enabled: row.glides
            NumberAnimation {
                duration: 150
                easing.type: Easing.OutCubic
            }
        }
    }

    Glow {
        anchors.fill: parent
        blur: 10
        color: Theme.shadow
        radius: 8
        visible: row.isLifted
    }

    Rectangle {
        anchors.fill: parent
        border.color: Theme.current.popupBorder
        border.width: row.isLifted ? 1 : 0
        color: row.isLifted ? Theme.current.popup
             : row.isCurrent ? Theme.current.rowCurrent
             : hover.hovered ? Theme.current.rowHovered : "transparent"
        radius: 8
    }

    FocusRing {
        cornerRadius: 8
        gap: -2
        visible: row.activeFocus
    }

    HoverHandler {
        id: hover
    }

    RowLayout {
        id: content

        anchors.fill: parent
        anchors.leftMargin: 10
        anchors.rightMargin: 10
        anchors.topMargin: 7
        anchors.bottomMargin: 7
        spacing: 12

        Symbol {
            Layout.preferredWidth: Theme.scaled(14)
            color: Theme.current.tertiary
            name: Symbol.Lines
            size: Theme.scaled(13) // which by default puts its lines on whole pixels

            HoverTip {
                text: "Drag to reorder"
            }
        }

        SmoothRectangle {
            Layout.preferredHeight: 42
            Layout.preferredWidth: 42
            color: Qt.alpha(Theme.current.accent, 0.11)
            radius: 9

            Symbol {
                anchors.centerIn: parent
                color: Theme.current.accent
                name: Symbol.Film
                size: 18
            }
        }

        JobText {
            Layout.fillWidth: true
            job: row.job
            progress: row.progress
        }

        JobControls {
            isCurrent: row.isCurrent
            job: row.job
            model: row.model
            visible: !row.job.isInProgress
        }
    }
}
