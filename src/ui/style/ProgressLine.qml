// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Templates as T
import Quorvale.Style

// How much of something is done, from 0 to 1.
T.ProgressBar {
    id: bar

    // What assistive technology reads beside the value.
    readonly property real minimumValue: from
    readonly property real maximumValue: to

    // Qt 6.4 does not tell it the value of a progress bar.
    Accessible.description: Math.trunc(value * 100) + "%"
    implicitHeight: Theme.scaled(6)
    implicitWidth: 120

    background: Rectangle {
        border.color: bar.Scheme.colors.controlBorder
        border.width: bar.Scheme.colors.edge
        color: bar.Scheme.colors.track
        radius: height / 2
    }

    contentItem: Item {
        Rectangle {
            color: bar.Scheme.colors.accent
            height: parent.height
            radius: height / 2
            // Never narrower than its round ends.
            width: bar.visualPosition > 0 ? Math.max(height, bar.visualPosition * parent.width) : 0
        }
    }
}
