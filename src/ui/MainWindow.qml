// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Controls.Basic
import Quorvale

ApplicationWindow {
    id: window

    required property ConverterViewModel model

    width: 960
    height: 640
    minimumWidth: 960
    minimumHeight: 640
    title: "Quorvale"
    visible: true

    ContentView {
        anchors.fill: parent
        model: window.model
    }
}
