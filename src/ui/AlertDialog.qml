// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Quorvale
import Quorvale.Style

// Tells the user what the controller has to say, and waits until it has been read.
T.Dialog {
    id: alert

    required property ConverterViewModel model

    anchors.centerIn: parent
    bottomPadding: 16
    closePolicy: T.Popup.CloseOnEscape
    focus: true
    implicitHeight: contentHeight + topPadding + bottomPadding
    leftPadding: 20
    modal: true
    rightPadding: 20
    title: "Quorvale"
    topPadding: 20
    // Of its own width, so that a long message wraps instead of widening it.
    width: Theme.scaled(360)

    // Shown as long as there is a text.
    function follow() {
        if (model.alertMessage === "")
            close();
        else
            open();
    }

    Component.onCompleted: follow()
    onClosed: alert.model.clearAlert()

    T.Overlay.modal: Rectangle {
        color: Theme.veil
    }

    background: SmoothRectangle {
        borderColor: Theme.current.popupBorder
        borderWidth: 1
        color: Theme.current.popup
        radius: 12

        Glow {
            anchors.fill: parent
            blur: 24
            color: Theme.shadow
            radius: 12
            z: -1
        }
    }

    contentItem: ColumnLayout {
        spacing: 10

        AppTile {
            Layout.alignment: Qt.AlignHCenter
        }

        TextLine {
            Layout.alignment: Qt.AlignHCenter
            Layout.topMargin: 4
            Accessible.role: Accessible.Heading
            color: Theme.current.text
            font: Theme.title3Bold
            text: alert.title
        }

        TextLine {
            Layout.fillWidth: true
            color: Theme.current.text
            font: Theme.body
            horizontalAlignment: Text.AlignHCenter
            text: alert.model.alertMessage
            wrapMode: Text.Wrap
        }

        ProminentButton {
            Layout.fillWidth: true
            Layout.topMargin: 6
            focus: true
            text: "OK"
            onClicked: alert.close()
        }
    }

    Connections {
        target: alert.model

        function onAlertMessageChanged() {
            alert.follow();
        }
    }
}
