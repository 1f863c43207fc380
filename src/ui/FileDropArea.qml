// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import Quorvale

// Takes files and folders, and nothing else, for the queue.
DropArea {
    id: area

    required property ConverterViewModel model

    // No drag leaves what is gone, as the empty queue's when files come in meanwhile.
    Component.onDestruction: {
        if (containsDrag)
            model.isDropTargeted = false;
    }
    onEntered: drag => {
        drag.accepted = drag.hasUrls && LocalFiles.areAmong(drag.urls);
        area.model.isDropTargeted = drag.accepted;
    }
    onExited: area.model.isDropTargeted = false
    onDropped: drop => {
        area.model.isDropTargeted = false;
        // Copied, whatever was offered: to say that the files were moved would have the other
        // program delete them.
        if (area.model.handleDrop(drop.urls))
            drop.accept(Qt.CopyAction);
    }
}
