// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Templates as T
import Quorvale.Style

// A switch at the end of the row that its label begins.
T.Switch {
    id: control

    property int symbol: Symbol.None

    function switchOver() {
        toggle();
        toggled();
    }

    function switchOverWithinReach() {
        if (Reach.includes(control))
            switchOver();
    }

    Accessible.description: enabled ? "" : "unavailable"
    Accessible.name: text
    focusPolicy: Qt.StrongFocus
    font: Theme.body
    implicitHeight: Math.max(Theme.controlHeight, implicitContentHeight)
    implicitWidth: implicitContentWidth + 12 + indicator.implicitWidth
    rightPadding: indicator.width + 12
    Accessible.onPressAction: switchOverWithinReach()
    Accessible.onToggleAction: switchOverWithinReach()

    Keys.forwardTo: PressKeys {
        button: control
        onReturned: control.switchOver()
    }

    indicator: Rectangle {
        anchors.verticalCenter: parent.verticalCenter
        border.color: control.Scheme.colors.controlBorder
        border.width: control.Scheme.colors.edge
        color: {
            const colors = control.Scheme.colors;
            if (control.checked)
                return control.down ? colors.accentFillPressed
                     : control.hovered ? colors.accentFillHovered : colors.accentFill;
            return control.down ? colors.trackPressed
                 : control.hovered ? colors.trackHovered : colors.track;
        }
        implicitHeight: 20
        implicitWidth: 34
        radius: height / 2
        x: control.width - width

        Rectangle {
            anchors.verticalCenter: parent.verticalCenter
            border.color: control.Scheme.colors.controlBorder
            border.width: control.Scheme.colors.edge
            color: control.down ? Theme.knobPressed : Theme.white
            height: width
            radius: height / 2
            width: parent.height - 4
            x: 2 + control.visualPosition * (parent.width - width - 4)

            Behavior on x {
                enabled: Theme.animates && !control.pressed
                NumberAnimation {
                    duration: 120
                    easing.type: Easing.OutCubic
                }
            }
        }

        FocusRing {
            cornerRadius: parent.radius
            visible: control.visualFocus
        }
    }

    contentItem: ButtonContent {
        color: control.Scheme.colors.text
        font: control.font
        isCentered: false
        symbol: control.symbol
        text: control.text
        wrapMode: Text.Wrap
    }
}
