// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Layouts
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

    implicitHeight: 34
    implicitWidth: button.implicitWidth

    PlainButton {
        id: button

        Accessible.checkable: true
        Accessible.checked: root.selected
        Accessible.role: Accessible.RadioButton
        anchors.fill: parent
        focus: true
        cornerRadius: 9
        leftPadding: 12
        rightPadding: 12
        scheme: Theme.dark
        text: root.label
        onClicked: root.action()

        background: SmoothRectangle {
            color: root.selected ? Qt.alpha(Theme.white, 0.11)
                 : button.hovered ? Qt.alpha(Theme.white, 0.05) : "transparent"
            radius: button.cornerRadius

            FocusRing {
                cornerRadius: button.cornerRadius
                gap: -2
                scheme: button.scheme
                visible: button.visualFocus
            }
        }

        contentItem: RowLayout {
            spacing: 10

            Item {
                Layout.preferredHeight: 18
                Layout.preferredWidth: 18

                Symbol {
                    anchors.centerIn: parent
                    color: Theme.white
                    name: root.codecSymbol
                    size: 16
                }
            }

            TextLine {
                Accessible.ignored: true
                Layout.fillWidth: true
                color: Theme.white
                elide: Text.ElideRight
                font: root.selected ? Theme.subheadlineSemibold : Theme.subheadline
                text: root.label
            }

            Symbol {
                color: Theme.dark.accent
                name: Symbol.CheckmarkCircleFill
                size: 16
                visible: root.selected
            }
        }
    }
}
