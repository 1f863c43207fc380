// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Templates as T
import Quorvale.Style

// Shows a text while the pointer rests on the parent and that stays where it is. Made only then, so
// that it costs a list of thousands of rows nothing.
Item {
    id: tip

    required property string text

    // The signals of everything that takes the parent along when it moves.
    function movements(): var {
        const found = [];
        for (let item = tip.parent; item; item = item.parent)
            found.push(item.xChanged, item.yChanged);
        return found;
    }

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
            contentWidth: Math.min(implicitContentWidth, Theme.scaled(420))
            delay: 600
            implicitHeight: contentHeight + topPadding + bottomPadding
            implicitWidth: contentWidth + leftPadding + rightPadding
            leftPadding: 8
            margins: 6
            rightPadding: 8
            text: tip.text
            topPadding: 5
            y: tip.height + 6
            Component.onCompleted: {
                tip.movements().forEach(movement => movement.connect(popup.close));
                open(); // after the delay, which a popup that is made visible does not keep
            }
            Component.onDestruction: tip.movements().forEach(movement => movement.disconnect(popup.close))

            background: PopupGround {
                radius: 5
            }

            contentItem: Text {
                color: tip.Scheme.colors.text
                font: Theme.subheadline
                horizontalAlignment: Text.AlignLeft
                text: popup.text
                textFormat: Text.PlainText
                wrapMode: Text.Wrap
            }
        }
        // qmllint enable unqualified
    }
}
