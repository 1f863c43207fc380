// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Templates as T
import Quorvale.Style

// A command of a menu, with its keyboard shortcut.
T.MenuItem {
    id: item

    Accessible.name: text
    font: Theme.body
    implicitHeight: Theme.controlHeight
    implicitWidth: 216
    leftPadding: 10
    rightPadding: 10
    Accessible.onPressAction: {
        if (Reach.includes(item))
            item.action.trigger(item); // which is a click, too
    }

    background: Rectangle {
        color: item.highlighted ? item.Scheme.colors.accentFill : "transparent"
        radius: Theme.controlRadius - 2
    }

    contentItem: Item {
        Text {
            anchors.left: parent.left
            anchors.verticalCenter: parent.verticalCenter
            color: item.highlighted ? Theme.white : item.Scheme.colors.text
            font: item.font
            text: item.text
            textFormat: Text.PlainText
        }

        Text {
            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            color: item.highlighted ? Theme.white : item.Scheme.colors.secondary
            font: item.font
            text: shortcut.nativeText
            textFormat: Text.PlainText
        }
    }

    // Only to spell the action's keys as the platform does.
    Shortcut {
        id: shortcut

        enabled: false
        sequence: item.action ? item.action.shortcut : ""
    }
}
