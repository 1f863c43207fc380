// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Layouts
import Quorvale.Style

// The program's name and what it is for.
RowLayout {
    spacing: 12

    AppTile {}

    ColumnLayout {
        Layout.fillWidth: true
        spacing: 2

        TextLine {
            Accessible.role: Accessible.Heading
            Layout.fillWidth: true
            color: Theme.white
            font: Theme.title2Bold
            text: "Quorvale"
            wrapMode: Text.Wrap
        }

        TextLine {
            Layout.fillWidth: true
            color: Theme.dark.secondary
            font: Theme.caption
            text: "Premiere-ready video"
            wrapMode: Text.Wrap
        }
    }
}
