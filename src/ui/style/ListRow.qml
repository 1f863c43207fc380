// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import Quorvale.Style

// A row of a list that is worked by pointer and keys, on its ground. It tells the list when it is,
// and the list says which row is the current one.
FocusItem {
    id: row

    /// Whether the row is the one that the keyboard works on.
    property bool isCurrent: false
    /// Whether the row shows that it has the keyboard.
    property bool showsKeyboard: true
    /// Whether the row is a picture under the pointer that drags it.
    property bool isLifted: false
    /// How far the row gives way to the one that is dragged.
    property real shift: 0
    property bool glides: false

    /// The row or a button of it is pressed, by whatever means, or has got the keyboard; the reason is
    /// a Qt.FocusReason.
    signal worked(int reason)
    /// The pointer asks for the menu, or assistive technology, at this place of the row.
    signal menuAsked(point place)
    /// A double click on the row itself, not on a button of it.
    signal doubleClicked

    /// The pointer works the row, which gets the keyboard by that.
    function take() {
        worked(Qt.MouseFocusReason);
        forceActiveFocus(Qt.MouseFocusReason);
    }

    /// A finger or a pen begins to drag the row, and works it by that; it is no tap any more.
    function lift() {
        touch.forget();
        take();
    }

    // Until the focus has gone, too: it must not be taken from an item that has it.
    activeFocusOnTab: isCurrent || activeFocus
    Accessible.onPressAction: {
        if (!Reach.includes(row))
            return;
        row.forceActiveFocus(Qt.OtherFocusReason);
        row.menuAsked(Qt.point(10, row.height));
    }
    onFocused: reason => worked(reason)
    onVisibleChanged: sinceClick.stop() // the next job that it shows has not been clicked

    transform: Translate {
        y: row.shift

        Behavior on y {
            enabled: row.glides && Theme.animates
            NumberAnimation {
                duration: 150
                easing.type: Easing.OutCubic
            }
        }
    }

    Glow {
        anchors.fill: parent
        blur: 10
        color: Theme.shadow
        radius: 8
        visible: row.isLifted
    }

    Rectangle {
        anchors.fill: parent
        border.color: row.isLifted ? row.Scheme.colors.popupBorder : row.Scheme.colors.controlBorder
        border.width: row.isLifted ? 1 : row.isCurrent ? row.Scheme.colors.edge : 0
        color: row.isLifted ? row.Scheme.colors.popup
             : row.isCurrent ? row.Scheme.colors.rowCurrent
             : hover.hovered ? row.Scheme.colors.rowHovered : "transparent"
        radius: 8
    }

    FocusRing {
        cornerRadius: 8
        gap: -2
        visible: row.activeFocus && row.showsKeyboard
    }

    HoverHandler {
        id: hover
    }

    // A second press is one of a double click when the first was here, too: Qt only looks where on
    // the screen it was, and the row may be another one there.
    Timer {
        id: sinceClick

        interval: Application.styleHints.mouseDoubleClickInterval
    }

    // These take what no button above them does.
    MouseArea {
        property bool isDoubleClick: false // until the button comes up: a drag is none

        acceptedButtons: Qt.AllButtons
        anchors.fill: parent
        onClicked: mouse => {
            if (mouse.button === Qt.RightButton)
                row.menuAsked(Qt.point(mouse.x, mouse.y));
            else if (mouse.button === Qt.LeftButton)
                sinceClick.restart();
        }
        onDoubleClicked: mouse => isDoubleClick = mouse.button === Qt.LeftButton && sinceClick.running
        onPressed: {
            isDoubleClick = false;
            row.take();
        }
        onReleased: {
            if (isDoubleClick)
                row.doubleClicked();
        }
    }

    TapArea {
        id: touch

        anchors.fill: parent
        onHeld: place => {
            row.take();
            row.menuAsked(place);
        }
        onTapped: row.take()
    }
}
