// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import Quorvale.Style

// Shows which control has the keyboard. Surrounds its parent.
Rectangle {
    property real cornerRadius: Theme.controlRadius
    property real gap: 2

    anchors.fill: parent
    anchors.margins: -gap - border.width
    border.color: Scheme.colors.accent
    border.width: 2
    color: "transparent"
    radius: cornerRadius + gap + border.width
}
