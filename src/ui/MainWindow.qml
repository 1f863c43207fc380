// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Templates as T
import Quorvale
import Quorvale.Style

T.ApplicationWindow {
    id: window

    required property ConverterViewModel model

    /// The size that it has by itself; another one is of the user's making, or the desktop's.
    property size ownSize: Qt.size(minimumWidth, minimumHeight)

    // Has the layouts below the item work out now what they need.
    function finish(item: Item) {
        for (let i = 0; i < item.children.length; ++i)
            finish(item.children[i]);
        item.ensurePolished();
    }

    // As large as everything in it needs in the font of the desktop, if the screen has the room.
    function fit() {
        if (width !== ownSize.width || height !== ownSize.height)
            return;
        const around = 72; // of the screen, for the title bar and the desktop's own
        // Twice, because how high a text is follows from how wide it may be.
        finish(content);
        finish(content);
        width = Math.max(minimumWidth, Math.min(content.implicitWidth, Screen.width));
        height = Math.max(minimumHeight, Math.min(content.implicitHeight, Screen.height - around));
        ownSize = Qt.size(width, height);
    }

    color: Theme.current.window
    height: 640
    minimumHeight: 640
    minimumWidth: 960
    title: "Quorvale"
    width: 960
    Component.onCompleted: {
        fit();
        visible = true;
    }

    ContentView {
        id: content

        anchors.fill: parent
        model: window.model
    }

    Connections {
        target: Theme

        function onChanged() {
            Qt.callLater(window.fit); // qmllint disable
        }
    }
}
