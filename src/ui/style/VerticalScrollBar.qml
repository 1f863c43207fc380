// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Templates as T
import Quorvale.Style

// Shows where a view is in its content, as long as there is more of it than fits.
T.ScrollBar {
    id: bar

    /// The user has moved it, by whatever means.
    signal worked

    Accessible.name: "Scroll bar"
    hoverEnabled: true
    implicitWidth: 12
    minimumSize: Math.min(1, 32 / Math.max(1, height))
    padding: 3
    policy: T.ScrollBar.AsNeeded
    visible: size < 1
    onPressedChanged: worked()
    Accessible.onDecreaseAction: {
        if (Reach.includes(bar)) {
            decrease();
            worked();
        }
    }
    Accessible.onIncreaseAction: {
        if (Reach.includes(bar)) {
            increase();
            worked();
        }
    }

    contentItem: Rectangle {
        color: bar.Scheme.colors.tertiary
        implicitWidth: 6
        opacity: bar.pressed ? 1 : bar.hovered ? 0.8 : 0.5
        radius: width / 2
    }
}
