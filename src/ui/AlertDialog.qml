// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Controls.Basic
import Quorvale

Dialog {
    id: alert

    required property ConverterViewModel model

    anchors.centerIn: parent
    modal: true
    title: "Quorvale"
    standardButtons: Dialog.Ok
    onClosed: alert.model.clearAlert()

    Label {
        text: alert.model.alertMessage
        textFormat: Text.PlainText
    }

    Connections {
        target: alert.model

        function onAlertRaised() {
            alert.open();
        }
    }
}
