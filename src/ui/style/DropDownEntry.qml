// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Templates as T
import Quorvale.Style

// An entry of a list that drops down, with a mark when it is the chosen one.
T.ItemDelegate {
    id: entry

    property bool isChosen: false

    Accessible.name: text
    Accessible.selectable: true
    Accessible.selected: isChosen
    implicitHeight: Theme.controlHeight
    leftPadding: Theme.scaled(24)
    rightPadding: 8
    Accessible.onPressAction: {
        if (Reach.includes(entry))
            entry.clicked();
    }

    background: Rectangle {
        border.color: entry.Scheme.colors.controlBorder
        border.width: entry.highlighted ? entry.Scheme.colors.edge : 0
        color: entry.highlighted ? entry.Scheme.colors.accentFill : "transparent"
        radius: Theme.controlRadius - 2
    }

    contentItem: Text {
        color: entry.highlighted ? Theme.white : entry.Scheme.colors.text
        elide: Text.ElideRight
        font: entry.font
        text: entry.text
        textFormat: Text.PlainText
        verticalAlignment: Text.AlignVCenter
    }

    Symbol {
        anchors.verticalCenter: parent.verticalCenter
        color: entry.highlighted ? Theme.white : entry.Scheme.colors.text
        name: Symbol.Checkmark
        size: Theme.scaled(12)
        visible: entry.isChosen
        x: Theme.scaled(7)
    }
}
