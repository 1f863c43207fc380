// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Controls.Basic
import Quorvale

Dialog {
    id: alert

    required property ConverterViewModel model

    // Of its own width, so that a long message wraps instead of widening it.
    width: 420
    anchors.centerIn: parent
    modal: true
    title: "Quorvale"
    standardButtons: Dialog.Ok
    onClosed: alert.model.clearAlert()

    contentItem: Label {
        text: alert.model.alertMessage
        textFormat: Text.PlainText
        wrapMode: Text.Wrap
    }

    Connections {
        target: alert.model

        function onAlertRaised() {
            alert.open();
        }
    }
}
