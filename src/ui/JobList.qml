// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Controls.Basic
import Quorvale
import QtQuick.Layouts

ColumnLayout {
    id: list

    required property ConverterViewModel model

    ProgressBar {
        Layout.fillWidth: true
        visible: list.model.isConverting
        value: list.model.overallProgress
    }

    ListView {
        Layout.fillWidth: true
        Layout.fillHeight: true
        clip: true
        model: list.model.jobs
        delegate: JobRow {
            width: ListView.view.width
        }
        ScrollBar.vertical: ScrollBar {}
    }
}
