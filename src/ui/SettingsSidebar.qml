// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Layouts
import Quorvale
import Quorvale.Style

// How the queue is converted. Dark in every scheme.
FocusScope {
    id: sidebar

    required property ConverterViewModel model

    // As the arrow keys of a group of radio buttons do.
    function chooseCodec(button: CodecButton) {
        if (!button)
            return;
        button.action();
        button.forceActiveFocus(Qt.TabFocusReason);
    }

    Scheme.colors: Theme.dark

    SmoothRectangle {
        anchors.fill: parent
        color: Theme.sidebarStart
        endColor: Theme.sidebarEnd
    }

    ColumnLayout {
        anchors.bottomMargin: 22
        anchors.fill: parent
        anchors.leftMargin: 24
        anchors.rightMargin: 24
        anchors.topMargin: 32
        spacing: 20

        SidebarHeader {
            Layout.fillWidth: true
        }

        ColumnLayout {
            Layout.fillWidth: true
            spacing: 8

            SectionLabel {
                text: "OUTPUT FORMAT"
            }

            Repeater {
                id: codecs

                model: sidebar.model.codecLabels

                // qmllint disable unqualified
                CodecButton {
                    required property int index
                    required property string modelData

                    Layout.fillWidth: true
                    codec: index
                    label: modelData
                    selected: sidebar.model.codecIndex === codec
                    Keys.onDownPressed: sidebar.chooseCodec(codecs.itemAt(index + 1))
                    Keys.onLeftPressed: sidebar.chooseCodec(codecs.itemAt(index - 1))
                    Keys.onRightPressed: sidebar.chooseCodec(codecs.itemAt(index + 1))
                    Keys.onUpPressed: sidebar.chooseCodec(codecs.itemAt(index - 1))
                    onAction: sidebar.model.chooseCodec(codec)
                }
                // qmllint enable unqualified
            }
        }

        EncodingGroup {
            Layout.fillWidth: true
            model: sidebar.model
        }

        ColumnLayout {
            Layout.fillWidth: true
            spacing: 10

            SectionLabel {
                text: "OPTIONS"
            }

            ToggleSwitch {
                Layout.fillWidth: true
                checked: sidebar.model.useHardware
                symbol: Symbol.Cpu
                text: "Apple media engine"
                onToggled: sidebar.model.useHardware = checked
            }

            RowLayout {
                Layout.fillWidth: true
                spacing: Theme.spacing

                TextLine {
                    Accessible.ignored: true
                    color: Theme.white
                    font: Theme.body
                    text: "Audio"
                }

                DropDown {
                    Accessible.name: "Audio"
                    Layout.fillWidth: true
                    currentIndex: sidebar.model.audioIndex
                    model: sidebar.model.audioLabels
                    onActivated: index => sidebar.model.audioIndex = index
                }
            }
        }

        Item {
            Layout.fillHeight: true
        }

        ToolStatusRow {
            Layout.fillWidth: true
        }
    }
}
