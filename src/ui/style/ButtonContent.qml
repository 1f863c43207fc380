// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import Quorvale.Style

// A symbol and a text side by side, in the middle or at the beginning of the control that they
// label. Either may be missing. A text that does not fit goes on in a second line where there may be
// one, and is shortened otherwise.
Item {
    id: content

    property int symbol: Symbol.None
    property bool isCentered: true
    property alias wrapMode: label.wrapMode
    property alias text: label.text
    property alias font: label.font
    required property color color

    implicitHeight: row.implicitHeight
    implicitWidth: label.x + label.implicitWidth

    Row {
        id: row

        anchors.verticalCenter: parent.verticalCenter
        spacing: icon.visible && label.visible ? 6 : 0
        x: content.isCentered ? Math.round((content.width - width) / 2) : 0

        Symbol {
            id: icon

            anchors.verticalCenter: parent.verticalCenter
            color: content.color
            name: content.symbol
            size: Math.round(label.font.pixelSize * 1.15)
            visible: name !== Symbol.None
        }

        Text {
            id: label

            anchors.verticalCenter: parent.verticalCenter
            color: content.color
            elide: wrapMode === Text.NoWrap ? Text.ElideRight : Text.ElideNone
            textFormat: Text.PlainText
            visible: text !== ""
            width: Math.max(0, Math.min(implicitWidth, content.width - x))
        }
    }
}
