// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import Quorvale.Style

// What a menu, a list that drops down or a tooltip stands on, with a faint shadow around it.
Rectangle {
    id: ground

    border.color: Scheme.colors.popupBorder
    border.width: 1
    color: Scheme.colors.popup
    radius: Theme.controlRadius + 2

    Glow {
        anchors.fill: parent
        blur: 8
        color: Theme.faintShadow
        radius: ground.radius
        z: -1
    }
}
