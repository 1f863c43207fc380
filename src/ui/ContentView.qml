// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import Quorvale
import Quorvale.Style

// The settings beside the queue.
Item {
    id: view

    required property ConverterViewModel model

    Scheme.colors: Theme.current
    // What everything needs; the sidebar is what is highest, the queue what may need more width.
    implicitHeight: sidebar.implicitHeight
    implicitWidth: queue.x + queue.implicitWidth

    // First for the Tab key, though above the sidebar.
    Loader {
        width: sidebar.width
        z: 1

        Component.onCompleted: setSource(Qt.platform.os === "osx" ? "NativeMenuBar.qml" : "FileMenuBar.qml",
                                         {"model": view.model})
    }

    SettingsSidebar {
        id: sidebar

        height: parent.height
        model: view.model
        width: 310
    }

    Rectangle {
        id: divider

        anchors.left: sidebar.right
        color: Theme.current.separator
        height: parent.height
        opacity: Theme.current.dividerOpacity
        width: 1
    }

    QueueView {
        id: queue

        anchors.left: divider.right
        anchors.right: parent.right
        height: parent.height
        model: view.model
    }

    // Read when there first is something to say.
    Loader {
        readonly property bool isNeeded: view.model.alertMessage !== ""

        anchors.fill: parent
        onIsNeededChanged: {
            if (status === Loader.Null)
                setSource("AlertDialog.qml", {"model": view.model});
        }
    }
}
