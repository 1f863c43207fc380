// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Templates as T
import Quorvale
import Quorvale.Style

// The commands that add to the queue, and the platform's to end the program.
DropMenu {
    id: menu

    required property ConverterViewModel model

    T.Action {
        shortcut: "Ctrl+O"
        text: "Add Videos…"
        onTriggered: Qt.callLater(menu.model.chooseFiles) // qmllint disable
    }

    T.Action {
        shortcut: "Ctrl+Shift+O"
        text: "Add Folder…"
        onTriggered: Qt.callLater(menu.model.chooseFolder) // qmllint disable
    }

    DropMenuSeparator {}

    T.Action {
        shortcut: "Ctrl+Q"
        text: "Quit"
        onTriggered: Qt.quit()
    }
}
