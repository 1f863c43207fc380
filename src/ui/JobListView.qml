// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Templates as T
import Quorvale
import Quorvale.Style

// The list of rows itself: scrolls, takes the keys for the rows, and opens their menu.
ListView {
    id: view

    required property ConverterViewModel converter
    required property RowReorder reorder

    // For assistive technology, which reads them as they are stacked.
    function restackRows() {
        Stacking.sortByIndex(contentItem);
    }

    function copyFailure(): bool {
        const row = currentItem as JobRow;
        if (!row || !row.job.hasFailed)
            return false;
        Clipboard.copy(row.job.failure);
        return true;
    }

    // As the row's button does, which a job that is converted has not.
    function removeCurrent() {
        const row = currentItem as JobRow;
        if (!row || row.job.isInProgress)
            return;
        converter.remove(row.job.id);
        keepKeyboard();
    }

    // With the row that took the place of the one that has gone.
    function keepKeyboard() {
        forceLayout();
        currentItem?.forceActiveFocus(Qt.OtherFocusReason);
    }

    function moveCurrent(offset: int) {
        const row = currentItem as JobRow;
        if (!row)
            return;
        converter.moveJob(row.job.id, offset);
        forceLayout();
        positionViewAtIndex(currentIndex, ListView.Contain);
    }

    function openMenuOfCurrent() {
        const row = currentItem as JobRow;
        if (!row)
            return;
        positionViewAtIndex(currentIndex, ListView.Contain);
        const place = mapFromItem(row, 10, row.height);
        menu.openFor(row, currentIndex, view, place.x, place.y);
    }

    function openMenuAt(x: real, y: real) {
        const index = indexAt(x, y);
        const row = itemAtIndex(index) as JobRow;
        if (!row)
            return;
        currentIndex = index;
        row.forceActiveFocus(Qt.MouseFocusReason);
        const place = mapFromItem(contentItem, x, y);
        menu.openFor(row, index, view, place.x, place.y);
    }

    Accessible.name: "Conversion queue"
    Accessible.role: Accessible.List
    bottomMargin: 6
    boundsBehavior: Flickable.StopAtBounds
    clip: true
    highlightMoveDuration: 0 // to the end of a long queue at once, too
    leftMargin: 16
    model: null
    reuseItems: true
    rightMargin: 16
    topMargin: 6

    // Once there is room for rows. Without any, the view makes none and puts the second that comes
    // where the first belongs, which is then above the list's beginning.
    onHeightChanged: {
        if (height > 0)
            model = converter.jobs;
    }

    Keys.onPressed: event => {
        const page = Math.max(1, Math.floor(height / contentHeight * count));
        if (event.matches(StandardKey.Copy)) {
            event.accepted = copyFailure();
            return;
        }
        switch (event.modifiers & ~Qt.KeypadModifier | event.key) {
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
        case Qt.Key_Delete:
            removeCurrent();
            break;
        case Qt.AltModifier | Qt.Key_Up:
            moveCurrent(-1);
            break;
        case Qt.AltModifier | Qt.Key_Down:
            moveCurrent(1);
            break;
        case Qt.Key_Menu:
        case Qt.ShiftModifier | Qt.Key_F10:
            openMenuOfCurrent();
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

    JobMenu {
        id: menu

        model: view.converter
        onClosed: {
            if (!view.activeFocus)
                view.keepKeyboard();
        }
    }

    // Of the content, so that its places are.
    TapHandler {
        acceptedButtons: Qt.RightButton
        onTapped: eventPoint => view.openMenuAt(eventPoint.position.x, eventPoint.position.y)
    }
}
