// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import Qt.labs.platform as Native
import Quorvale

// The File menu in the desktop's own menu bar, which adds the command to end the program.
Item {
    id: bar

    required property ConverterViewModel model

    Native.MenuBar {
        Native.Menu {
            title: "File"

            Native.MenuItem {
                shortcut: "Ctrl+O"
                text: "Add Videos…"
                onTriggered: Qt.callLater(bar.model.chooseFiles) // qmllint disable
            }

            Native.MenuItem {
                shortcut: "Ctrl+Shift+O"
                text: "Add Folder…"
                onTriggered: Qt.callLater(bar.model.chooseFolder) // qmllint disable
            }
        }
    }
}
