// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Quorvale.Style

// A command of a menu, with its keys.
T.MenuItem {
    id: item

    /// The keys that do the same while the menu is closed, as the parts of a QKeySequence are named.
    /// They are only shown here: those of the action, which works them, or of something else.
    property string keys: item.action?.shortcut ?? ""

    Accessible.name: text
    font: Theme.body
    implicitHeight: Theme.controlHeight
    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    leftPadding: 10
    rightPadding: 10
    Keys.forwardTo: [ListView.view] // before the space bar chooses
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
            text: shortcut.nativeText.replace(/^Del$/, "Delete") // as it is written on the key
            textFormat: Text.PlainText
            visible: text !== ""
        }
    }

    // Only to spell the keys as the platform does.
    Shortcut {
        id: shortcut

        enabled: false
        sequence: item.keys
    }
}
