// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Templates as T
import Quorvale
import Quorvale.Style

T.ApplicationWindow {
    id: window

    required property ConverterViewModel model

    color: Theme.current.window
    height: 640
    minimumHeight: 640
    minimumWidth: 960
    title: "Quorvale"
    visible: true
    width: 960

    ContentView {
        anchors.fill: parent
        model: window.model
    }
}
