// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Layouts
import Quorvale
import Quorvale.Style

// Where the converted files go, and the button that makes them.
Item {
    id: footer

    required property ConverterViewModel model

    readonly property string convertText:
        "Convert " + (model.jobCount - model.completedCount) + " Video" + (model.jobCount === 1 ? "" : "s")

    implicitHeight: column.implicitHeight + column.anchors.bottomMargin

    ColumnLayout {
        id: column

        anchors.bottomMargin: 22
        anchors.fill: parent
        anchors.leftMargin: 26
        anchors.rightMargin: 26
        spacing: 14

        Rectangle {
            Layout.fillWidth: true
            Layout.preferredHeight: 1
            color: Theme.current.separator
        }

        RowLayout {
            Layout.fillWidth: true
            // The same with either button.
            Layout.minimumHeight: Theme.largeControlHeight
            spacing: 12

            DestinationButton {
                Layout.fillWidth: true
                model: footer.model
            }

            SymbolButton {
                symbol: Symbol.ArrowRightCircle
                text: "Show output folder"
                visible: footer.model.hasDestination
                onClicked: footer.model.revealDestination()
            }

            ProminentButton {
                id: convertButton

                enabled: footer.model.jobCount > 0
                isLarge: true
                // The label is at least 138 wide.
                implicitWidth: Math.max(138, implicitContentWidth) + leftPadding + rightPadding
                symbol: Symbol.BoltFill
                visible: !footer.model.isConverting
                onClicked: footer.model.start()
            }

            BorderedButton {
                id: cancelButton

                text: "Cancel"
                textColor: Scheme.colors.red
                visible: footer.model.isConverting
                onClicked: footer.model.cancel()
            }
        }
    }

    // Not while it is hidden, so that no reader is told of it with each video.
    Binding {
        property: "text"
        restoreMode: Binding.RestoreNone
        target: convertButton
        value: footer.convertText
        when: !footer.model.isConverting
    }

    // The button that takes the other's place takes the keyboard, too.
    Connections {
        target: footer.model

        function onIsConvertingChanged() {
            if (footer.model.isConverting)
                cancelButton.takeOver(convertButton);
            else
                convertButton.takeOver(cancelButton);
        }
    }
}
