// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Templates as T
import Quorvale.Style

// Chooses one of a list of texts.
T.ComboBox {
    id: box

    /// Of its texts.
    readonly property real widest: {
        let most = metrics.height; // so that another font is heeded
        for (let i = 0; i < count; ++i)
            most = Math.max(most, Math.ceil(metrics.advanceWidth(textAt(i))));
        return most;
    }

    /// Whether its list is. The list is not made before it is asked for.
    property bool isOpen: false
    /// Whether the box showed that it had the keyboard when that went to the list.
    property bool hadVisualFocus: false
    /// Whether the space bar is down as a part of what is typed, and does not choose.
    property bool isSpaceTyped: false

    // Qt 6.4 tells assistive technology neither state.
    Accessible.description: displayText + (isOpen ? ", open" : "") + (enabled ? "" : ", unavailable")
    Accessible.name: ""
    focusPolicy: Qt.StrongFocus
    font: Theme.body
    implicitHeight: Theme.controlHeight
    implicitWidth: widest + leftPadding + rightPadding
    leftPadding: 10
    opacity: enabled ? 1 : Scheme.colors.faded
    rightPadding: indicator.width + 14
    onEnabledChanged: {
        if (isOpen)
            popup.close();
    }
    Accessible.onPressAction: {
        if (!Reach.includes(box))
            return;
        if (box.popup.visible)
            box.popup.close();
        else
            box.popup.open();
    }

    // When the key comes up, as with the space bar: the open list takes that for a choice.
    Keys.onReleased: event => {
        const isReturn = event.key === Qt.Key_Return || event.key === Qt.Key_Enter;
        const opens = isReturn && !event.isAutoRepeat && !box.popup.visible;
        event.accepted = opens || (event.key === Qt.Key_Space && box.isSpaceTyped);
        if (opens)
            box.popup.open();
    }

    // Of the open list. A closed one goes through its texts by itself.
    Keys.onPressed: event => {
        if (!isOpen)
            return;
        const found = typeAhead.find(event.text, event.modifiers, highlightedIndex, count, index => textAt(index));
        event.accepted = found >= 0;
        isSpaceTyped = event.accepted && event.key === Qt.Key_Space;
        while (event.accepted && highlightedIndex < found)
            incrementCurrentIndex();
        while (event.accepted && highlightedIndex > found)
            decrementCurrentIndex();
    }

    TypeAhead {
        id: typeAhead
    }

    FontMetrics {
        id: metrics

        font: box.font
    }

    background: Rectangle {
        border.color: box.Scheme.colors.controlBorder
        border.width: 1
        color: box.down ? box.Scheme.colors.controlPressed
             : box.hovered ? box.Scheme.colors.controlHovered : box.Scheme.colors.control
        radius: Theme.controlRadius

        FocusRing {
            visible: box.visualFocus || (box.isOpen && box.hadVisualFocus)
        }
    }

    contentItem: ElidedLine {
        Accessible.ignored: true
        color: box.Scheme.colors.text
        font: box.font
        text: box.displayText
        verticalAlignment: Text.AlignVCenter
    }

    indicator: Symbol {
        anchors.right: parent.right
        anchors.rightMargin: 8
        anchors.verticalCenter: parent.verticalCenter
        color: box.Scheme.colors.text
        name: Symbol.ChevronUpDown
        size: Theme.scaled(12)
    }

    // qmllint disable unqualified
    delegate: DropDownEntry {
        required property string modelData
        required property int index

        Keys.forwardTo: box
        font: box.font
        highlighted: box.highlightedIndex === index
        isChosen: box.currentIndex === index
        text: modelData
        width: ListView.view.width
    }
    // qmllint enable unqualified

    popup: T.Popup {
        bottomPadding: 4
        focus: true
        implicitHeight: contentItem.implicitHeight + topPadding + bottomPadding
        leftPadding: 4
        rightPadding: 4
        topPadding: 4
        margins: 4
        width: Math.max(box.width, box.widest + 2 * 4 + Theme.scaled(24) + 8) // as an entry needs
        y: box.height + 4
        onAboutToHide: box.isOpen = false
        onAboutToShow: {
            box.hadVisualFocus = box.visualFocus;
            box.isSpaceTyped = false;
            typeAhead.forget();
            box.isOpen = true;
        }
        onClosed: {
            const window = box.Window.window;
            // Unless something else has taken the keyboard.
            if (window && (!window.activeFocusItem || window.activeFocusItem === window.contentItem))
                box.forceActiveFocus(Qt.PopupFocusReason);
            if (box.activeFocus && box.focusReason === Qt.PopupFocusReason && box.hadVisualFocus)
                box.focusReason = Qt.TabFocusReason;
        }

        background: PopupGround {}

        contentItem: ListView {
            Accessible.name: box.Accessible.name
            Accessible.role: Accessible.List
            clip: true
            currentIndex: box.highlightedIndex
            focus: true
            implicitHeight: contentHeight
            interactive: false
            model: box.delegateModel
            onActiveFocusChanged: {
                if (!activeFocus && !box.activeFocus)
                    box.popup.close();
            }
        }
    }
}
