// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
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

    /// What everything needs, whatever the goal.
    implicitHeight: scroll.y + column.y + column.implicitHeight + encoding.unusedHeight
                    + scroll.anchors.bottomMargin + status.height + status.anchors.bottomMargin

    /// The control in it that has the keyboard.
    readonly property T.Control focused: activeFocus ? Window.activeFocusItem as T.Control : null

    Scheme.colors: Theme.dark
    // What the keyboard comes to comes into sight.
    onFocusedChanged: {
        if (!focused?.visualFocus)
            return;
        const top = column.mapFromItem(focused, 0, 0).y;
        const around = 8; // room for its ring
        const least = column.y + top + focused.height + around - scroll.height;
        const most = column.y + top - around;
        scroll.contentY = Math.max(0, Math.min(scroll.contentHeight - scroll.height,
                                               Math.max(least, Math.min(most, scroll.contentY))));
    }

    SmoothRectangle {
        anchors.fill: parent
        color: Theme.sidebarStart
        endColor: Theme.sidebarEnd
    }

    Flickable {
        id: scroll

        anchors.bottom: status.top
        anchors.bottomMargin: column.spacing
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.topMargin: Theme.menuBarHeight // below which nothing goes
        boundsBehavior: Flickable.StopAtBounds
        clip: interactive
        contentHeight: Math.max(height, column.y + column.implicitHeight)
        interactive: contentHeight > height

        ColumnLayout {
            id: column

            spacing: 20
            width: sidebar.width - 2 * x
            x: 24
            y: Math.max(4, 32 - scroll.y)

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
                id: encoding

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

                GridLayout {
                    Layout.fillWidth: true
                    columnSpacing: Theme.spacing
                    // Below the label where large texts leave no room beside it.
                    columns: audioLabel.implicitWidth + columnSpacing + audio.implicitWidth <= width ? 2 : 1
                    rowSpacing: 4

                    TextLine {
                        id: audioLabel

                        Accessible.ignored: true
                        color: Theme.white
                        font: Theme.body
                        text: "Audio"
                    }

                    DropDown {
                        id: audio

                        Accessible.name: "Audio"
                        Layout.fillWidth: true
                        currentIndex: sidebar.model.audioIndex
                        model: sidebar.model.audioLabels
                        onActivated: index => sidebar.model.audioIndex = index
                    }
                }
            }
        }

        T.ScrollBar.vertical: VerticalScrollBar {}
    }

    ToolStatusRow {
        id: status

        anchors.bottom: parent.bottom
        anchors.bottomMargin: 22
        anchors.left: parent.left
        anchors.leftMargin: column.x
        width: column.width
    }
}
