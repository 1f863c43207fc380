// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import Quorvale.Style

// The program's sign.
Item {
    implicitHeight: 44
    implicitWidth: 44

    Glow {
        anchors.fill: parent
        blur: 12
        color: Qt.alpha(Theme.purple, 0.35)
        radius: 12
    }

    SmoothRectangle {
        anchors.fill: parent
        color: Theme.purple
        endColor: Theme.blue
        radius: 12
    }

    Symbol {
        anchors.centerIn: parent
        color: Theme.white
        name: Symbol.SparklesTv
        size: 24
    }
}
