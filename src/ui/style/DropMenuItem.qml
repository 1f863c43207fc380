// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Quorvale.Style

// A command of a menu, with its keyboard shortcut.
T.MenuItem {
    id: item

    Accessible.name: text
    font: Theme.body
    implicitHeight: Theme.controlHeight
    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    leftPadding: 10
    rightPadding: 10
    Accessible.onPressAction: {
        if (Reach.includes(item))
            item.action.trigger(item); // which is a click, too
    }

    background: Rectangle {
        border.color: item.Scheme.colors.controlBorder
        border.width: item.highlighted ? item.Scheme.colors.edge : 0
        color: item.highlighted ? item.Scheme.colors.accentFill : "transparent"
        radius: Theme.controlRadius - 2
    }

    contentItem: RowLayout {
        spacing: 24

        Text {
            Layout.fillWidth: true
            color: item.highlighted ? Theme.white : item.Scheme.colors.text
            font: item.font
            text: item.text
            textFormat: Text.PlainText
        }

        Text {
            color: item.highlighted ? Theme.white : item.Scheme.colors.secondary
            font: item.font
            text: shortcut.nativeText
            textFormat: Text.PlainText
            visible: text !== ""
        }
    }

    // Only to spell the action's keys as the platform does.
    Shortcut {
        id: shortcut

        enabled: false
        sequence: item.action ? item.action.shortcut : ""
    }
}
