// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Quorvale
import Quorvale.Style

// One of the output formats to choose from.
FocusScope {
    id: root

    required property int codec
    required property string label
    required property bool selected

    readonly property int codecSymbol: {
        switch (codec) {
        case OutputCodec.H264:
            return Symbol.PlayRectangle;
        case OutputCodec.Hevc:
            return Symbol.HSquare;
        default:
            return Symbol.FilmStack;
        }
    }

    /// The button was pressed.
    signal action

    // Higher where the text needs that.
    implicitHeight: Math.max(34, button.implicitContentHeight + 4)
    implicitWidth: button.implicitContentWidth + button.leftPadding + button.rightPadding

    // A control's own type is what it is read out as; Qt takes no other role for it.
    T.RadioButton {
        id: button

        readonly property real cornerRadius: 9

        function clickWithinReach() {
            if (Reach.includes(button))
                clicked();
        }

        Accessible.description: enabled ? "" : "unavailable"
        Accessible.name: text
        anchors.fill: parent
        checked: root.selected
        focus: true
        // All codecs are one stop of the Tab key. What has the focus keeps it until it has gone: it
        // must not be taken from it.
        focusPolicy: root.selected || activeFocus ? Qt.StrongFocus : Qt.ClickFocus
        leftPadding: 12
        rightPadding: 12
        text: root.label
        Accessible.onPressAction: clickWithinReach()
        Accessible.onToggleAction: clickWithinReach()
        onClicked: root.action()

        Keys.forwardTo: PressKeys {
            button: button
            onReturned: button.clicked()
        }

        background: SmoothRectangle {
            borderColor: button.Scheme.colors.controlBorder
            borderWidth: root.selected ? button.Scheme.colors.edge : 0
            color: Qt.alpha(Theme.white, (root.selected ? 0.11 : 0) + (button.down ? 0.11
                                                                    : button.hovered ? 0.06 : 0))
            radius: button.cornerRadius

            FocusRing {
                cornerRadius: button.cornerRadius
                gap: -2
                visible: button.visualFocus
            }
        }

        contentItem: RowLayout {
            spacing: 10

            Item {
                Layout.preferredHeight: Theme.scaled(18)
                Layout.preferredWidth: Theme.scaled(18)

                Symbol {
                    anchors.centerIn: parent
                    color: Theme.white
                    name: root.codecSymbol
                    size: Theme.scaled(16)
                }
            }

            TextLine {
                Accessible.ignored: true
                Layout.fillWidth: true
                color: Theme.white
                font: root.selected ? Theme.subheadlineSemibold : Theme.subheadline
                text: root.label
                wrapMode: Text.Wrap
            }

            Symbol {
                color: Theme.dark.accent
                name: Symbol.CheckmarkCircleFill
                size: Theme.scaled(16)
                visible: root.selected
            }
        }
    }
}
