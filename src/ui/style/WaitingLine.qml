// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import Quorvale.Style

// A bar for what takes nobody knows how long.
ProgressLine {
    id: bar

    /// How long each piece of a bar that stands still is, and how far from the next.
    readonly property real piece: 12

    indeterminate: true

    Item {
        anchors.fill: parent

        Rectangle {
            /// How far it has come, from 0 to 1: the way may be of any length meanwhile.
            property real way

            color: bar.Scheme.colors.accent
            height: parent.height
            radius: height / 2
            visible: Theme.animates
            width: parent.width / 4
            x: way * (parent.width - width)

            // To and fro.
            SequentialAnimation on way {
                loops: Animation.Infinite
                running: bar.visible && Theme.animates

                NumberAnimation {
                    duration: 1200
                    easing.type: Easing.InOutSine
                    to: 1
                }
                NumberAnimation {
                    duration: 1200
                    easing.type: Easing.InOutSine
                    to: 0
                }
            }
        }

        // All along the bar where nothing is to move, so that nobody takes it for a part of the way.
        Row {
            anchors.horizontalCenter: parent.horizontalCenter
            spacing: bar.piece
            visible: !Theme.animates

            // qmllint disable unqualified
            Repeater {
                model: Theme.animates ? 0 : Math.floor((bar.width + bar.piece) / (2 * bar.piece))

                Rectangle {
                    color: bar.Scheme.colors.accent
                    height: bar.height
                    radius: height / 2
                    width: bar.piece
                }
            }
            // qmllint enable unqualified
        }
    }
}
