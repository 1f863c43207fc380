// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Templates as T

// Shows a text while the pointer rests on the parent. Made only then, so that it costs a list of
// thousands of rows nothing.
Item {
    id: tip

    required property string text
    property ColorScheme scheme: Theme.current

    anchors.fill: parent

    HoverHandler {
        id: hover
    }

    Loader {
        active: hover.hovered && tip.text !== ""
        anchors.fill: parent

        // qmllint disable unqualified
        sourceComponent: T.ToolTip {
            id: popup

            bottomPadding: 5
            contentWidth: Math.min(implicitContentWidth, 420)
            delay: 600
            implicitHeight: contentHeight + topPadding + bottomPadding
            implicitWidth: contentWidth + leftPadding + rightPadding
            leftPadding: 8
            margins: 6
            rightPadding: 8
            text: tip.text
            topPadding: 5
            visible: true
            y: tip.height + 6

            background: Rectangle {
                border.color: tip.scheme.popupBorder
                border.width: 1
                color: tip.scheme.popup
                radius: 5
            }

            contentItem: Text {
                color: tip.scheme.text
                font: Theme.subheadline
                text: popup.text
                textFormat: Text.PlainText
                wrapMode: Text.Wrap
            }
        }
        // qmllint enable unqualified
    }
}
