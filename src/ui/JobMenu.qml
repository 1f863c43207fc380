// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Templates as T
import Quorvale
import Quorvale.Style

// What can be done with a row's job, where the user asks for it. What does not apply is absent.
DropMenu {
    id: menu

    required property ConverterViewModel model

    // The row that it was opened for last, its job and its place in the list. When something of that
    // is different, the menu closes.
    property JobRow row: null
    property shownJob job

    property int index: -1
    readonly property bool isOrderOpen: !model.isConverting

    component Entry: DropMenuItem {
        required property bool applies

        activeFocusOnTab: applies // by which the keys pass over it
        height: applies ? implicitHeight : 0
        visible: applies
    }

    // Between two groups, of which one, that of what is shown of the video, is always there.
    component Line: DropMenuSeparator {
        required property bool applies

        height: applies ? implicitHeight : 0
        visible: applies
    }

    /// Opens it at a place of the item `below` for the row, which is that of the list's `index`.
    function openFor(row: JobRow, index: int, below: Item, x: real, y: real) {
        menu.row = row;
        menu.job = row.job;
        menu.index = index;
        popup(below, x, y);
    }

    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutside

    Entry {
        id: queueAgain

        applies: menu.job.isCompleted

        action: T.Action {
            text: "Queue Again"
            onTriggered: menu.model.requeue(menu.job.id)
        }
    }

    Line {
        applies: queueAgain.applies
    }

    Entry {
        id: moveUp

        applies: menu.isOrderOpen && menu.index > 0
        keys: "Alt+Up"

        action: T.Action {
            text: "Move Up"
            onTriggered: menu.model.moveJob(menu.job.id, -1)
        }
    }

    Entry {
        id: moveDown

        applies: menu.isOrderOpen && menu.index < menu.model.jobCount - 1
        keys: "Alt+Down"

        action: T.Action {
            text: "Move Down"
            onTriggered: menu.model.moveJob(menu.job.id, 1)
        }
    }

    Line {
        applies: moveUp.applies || moveDown.applies
    }

    Entry {
        applies: true

        action: T.Action {
            text: "Show Video in File Manager"
            onTriggered: menu.model.revealSource(menu.job.id)
        }
    }

    Entry {
        applies: menu.job.isCompleted

        action: T.Action {
            text: "Show Converted File in File Manager"
            onTriggered: menu.model.revealOutput(menu.job.id)
        }
    }

    Line {
        applies: copyMessage.applies
    }

    Entry {
        id: copyMessage

        applies: menu.job.message !== ""
        keys: "Ctrl+C"

        action: T.Action {
            text: "Copy Message"
            onTriggered: Clipboard.copy(menu.job.message)
        }
    }

    Line {
        applies: remove.applies
    }

    Entry {
        id: remove

        applies: !menu.job.isInProgress
        keys: "Delete"

        action: T.Action {
            text: "Remove"
            onTriggered: menu.model.remove(menu.job.id)
        }
    }

    Connections {
        function onJobChanged() {
            menu.close();
        }

        target: menu.row
    }

    Connections {
        function onIsConvertingChanged() {
            menu.close();
        }

        function onJobsChanged() {
            if (menu.model.jobs.indexOf(menu.job.id) !== menu.index)
                menu.close();
        }

        enabled: menu.visible
        target: menu.model
    }
}
