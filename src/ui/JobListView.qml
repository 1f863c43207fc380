// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Templates as T
import Quorvale
import Quorvale.Style

// The list of rows itself: scrolls, takes the arrow keys, and copies the current row's failure.
ListView {
    id: view

    required property ConverterViewModel converter
    required property RowReorder reorder

    // For assistive technology, which reads them as they are stacked.
    function restackRows() {
        Stacking.sortByIndex(contentItem);
    }

    Accessible.name: "Conversion queue"
    Accessible.role: Accessible.List
    bottomMargin: 6
    boundsBehavior: Flickable.StopAtBounds
    clip: true
    highlightMoveDuration: 0 // to the end of a long queue at once, too
    leftMargin: 16
    model: converter.jobs
    reuseItems: true
    rightMargin: 16
    topMargin: 6

    Keys.onPressed: event => {
        const row = currentItem as JobRow;
        if (event.matches(StandardKey.Copy) && row && row.job.hasFailed) {
            Clipboard.copy(row.job.failure);
            event.accepted = true;
            return;
        }
        const page = Math.max(1, Math.floor(height / contentHeight * count));
        switch (event.key) {
        case Qt.Key_Home:
            currentIndex = 0;
            break;
        case Qt.Key_End:
            currentIndex = count - 1;
            break;
        case Qt.Key_PageUp:
            currentIndex = Math.max(0, currentIndex - page);
            break;
        case Qt.Key_PageDown:
            currentIndex = Math.min(count - 1, currentIndex + page);
            break;
        default:
            return;
        }
        event.accepted = true;
    }

    // qmllint disable unqualified
    delegate: JobRow {
        required property int index

        glides: view.reorder.glides
        isCurrent: ListView.isCurrentItem
        model: view.converter
        opacity: view.reorder.from === index ? 0 : 1
        shift: view.reorder.shiftOf(index)
        width: view.width - view.leftMargin - view.rightMargin

        Component.onCompleted: Qt.callLater(view.restackRows)
        onIndexChanged: Qt.callLater(view.restackRows)

        // A row that waits to be used again is nothing to read out.
        ListView.onPooled: visible = false
        ListView.onReused: {
            visible = true;
            Qt.callLater(view.restackRows);
        }
    }
    // qmllint enable unqualified

    T.ScrollBar.vertical: VerticalScrollBar {}
}
