// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Layouts
import Quorvale
import Quorvale.Style

// Whether the program has what it needs to convert.
RowLayout {
    id: row

    spacing: 7

    ToolStatus {
        id: tool

        isActive: row.Window.visibility !== Window.Hidden && row.Window.visibility !== Window.Minimized
    }

    Rectangle {
        Layout.preferredHeight: 7
        Layout.preferredWidth: 7
        color: tool.isFound ? Theme.dark.green : Theme.orange
        radius: 3.5
    }

    TextLine {
        Layout.fillWidth: true
        color: Theme.dark.secondary
        font: Theme.caption
        text: tool.isFound ? "FFmpeg ready" : "FFmpeg required"
        wrapMode: Text.Wrap
    }
}
