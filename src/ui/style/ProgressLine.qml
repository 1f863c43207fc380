// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import Quorvale.Style

// How much of something is done, from 0 to 1.
ProgressItem {
    id: bar

    Accessible.role: Accessible.ProgressBar
    implicitHeight: Theme.scaled(6)
    implicitWidth: 120

    Rectangle {
        anchors.fill: parent
        border.color: bar.Scheme.colors.controlBorder
        border.width: bar.Scheme.colors.edge
        color: bar.Scheme.colors.track
        radius: height / 2
    }

    Rectangle {
        color: bar.Scheme.colors.accent
        height: parent.height
        radius: height / 2
        visible: !bar.indeterminate
        // Never narrower than its round ends.
        width: bar.fraction > 0 ? Math.max(height, Math.min(bar.fraction, 1) * parent.width) : 0
    }
}
