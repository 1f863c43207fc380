// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Templates as T
import Quorvale.Style

// How much of something is done, from 0 to 1, or that it is not known.
T.ProgressBar {
    id: bar

    // What assistive technology reads beside the value.
    readonly property real minimumValue: from
    readonly property real maximumValue: to

    // Qt 6.4 does not tell it the value of a progress bar.
    Accessible.description: indeterminate ? "" : Math.trunc(value * 100) + "%"
    implicitHeight: 6
    implicitWidth: 120

    background: Rectangle {
        color: bar.Scheme.colors.track
        radius: height / 2
    }

    contentItem: Item {
        Rectangle {
            color: bar.Scheme.colors.accent
            height: parent.height
            radius: height / 2
            visible: !bar.indeterminate
            // Never narrower than its round ends.
            width: bar.visualPosition > 0 ? Math.max(height, bar.visualPosition * parent.width) : 0
        }

        Rectangle {
            /// How far it has come, from 0 to 1: the way may be of any length meanwhile.
            property real way

            color: bar.Scheme.colors.accent
            height: parent.height
            radius: height / 2
            visible: bar.indeterminate
            width: parent.width / 4
            x: way * (parent.width - width)

            // To and fro.
            SequentialAnimation on way {
                loops: Animation.Infinite
                running: bar.indeterminate && bar.visible

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
    }
}
