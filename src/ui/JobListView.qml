// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Templates as T
import Quorvale
import Quorvale.Style

// The list of rows itself: scrolls, shows which is the current one, and opens its menu.
ListView {
    id: view

    required property ConverterViewModel converter
    required property RowReorder reorder

    /// Whether the row that has the keyboard shows it: it does not where the pointer has put it.
    property bool showsKeyboard: true

    /// The failed job whose row had the keyboard last.
    property shownJob seenFailure

    /// Whether the rows must stay where they are.
    readonly property bool isHeld: menu.visible || reorder.isActive

    /// The user, by whatever means, has looked for a row.
    signal searched

    // For assistive technology, which reads them as they are stacked.
    function restackRows() {
        Stacking.sortByIndex(contentItem);
    }

    /// The row of the index, or a button of it, is pressed or gets the keyboard for this
    /// Qt.FocusReason: it becomes the current one, which the keys work on.
    function work(index: int, reason: int) {
        if (index < 0) // it is about to go
            return;
        currentIndex = index;
        const job = (currentItem as JobRow).job;
        if (job.hasFailed)
            seenFailure = job;
        switch (reason) {
        case Qt.MouseFocusReason:
            showsKeyboard = false;
            break;
        case Qt.TabFocusReason:
        case Qt.BacktabFocusReason:
            showsKeyboard = true;
            showCurrent();
            break;
        }
    }

    /// Whether all of the row is.
    function isInSight(index: int): bool {
        const row = itemAtIndex(index) as JobRow;
        if (!row)
            return false;
        return row.y >= contentY && row.y + row.height <= contentY + height;
    }

    // Rows are as high as what they say only when that is laid out.
    function layOutRows() {
        for (let i = 0; i < contentItem.children.length; ++i)
            (contentItem.children[i] as JobRow)?.layOut();
        forceLayout();
    }

    // With the room above the first row and below the last.
    function showRow(index: int) {
        positionViewAtIndex(index, ListView.Contain);
        layOutRows();
        positionViewAtIndex(index, ListView.Contain);
        if (index === 0)
            reorder.scrollTo(-Infinity);
        else if (index === count - 1)
            reorder.scrollTo(Infinity);
    }

    /// Has all of the current row in sight.
    function showCurrent() {
        searched();
        showRow(currentIndex);
    }

    /// Gives the keyboard to the first row below the current one whose job has failed, at the end
    /// to the first of all; to the current one where its failure was not yet seen.
    function showNextFailed() {
        const isSeen = model.indexOf(seenFailure.id) === currentIndex;
        const row = model.failedRow(isSeen ? currentIndex + 1 : currentIndex);
        if (row < 0)
            return;
        work(row, Qt.TabFocusReason);
        currentItem.forceActiveFocus(Qt.TabFocusReason);
    }

    /// With the row that took the place of the one that has gone.
    function keepKeyboard() {
        forceLayout();
        currentItem?.forceActiveFocus(Qt.OtherFocusReason);
    }

    /// In the file manager: what the current row's video has become, else the video.
    function showFile() {
        const job = (currentItem as JobRow).job;
        if (job.isCompleted)
            converter.revealOutput(job.id);
        else
            converter.revealSource(job.id);
    }

    /// At a place of the row that is current.
    function openMenu(place: point) {
        const row = currentItem as JobRow;
        if (!row)
            return;
        const inView = mapFromItem(row, place);
        menu.openFor(row, currentIndex, view, inView.x, inView.y);
    }

    Accessible.name: "Conversion queue"
    Accessible.role: Accessible.List
    bottomMargin: 6
    boundsBehavior: Flickable.StopAtBounds
    clip: true
    highlightFollowsCurrentItem: false // it would scroll what is pressed away under the pointer
    keyNavigationEnabled: false
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

    onMovementStarted: searched()

    // qmllint disable unqualified
    delegate: JobRow {
        required property int index

        glides: view.reorder.glides
        isCurrent: ListView.isCurrentItem
        model: view.converter
        opacity: view.reorder.from === index ? 0 : 1
        shift: view.reorder.shiftOf(index)
        showsKeyboard: view.showsKeyboard
        width: view.width - view.leftMargin - view.rightMargin

        Component.onCompleted: Qt.callLater(view.restackRows)
        onIndexChanged: Qt.callLater(view.restackRows)
        onDoubleClicked: view.showFile()
        onMenuAsked: place => view.openMenu(place)
        onWorked: reason => view.work(index, reason)

        // A row that waits to be used again is nothing to read out.
        ListView.onPooled: visible = false
        ListView.onReused: {
            visible = true;
            Qt.callLater(view.restackRows);
        }
    }
    // qmllint enable unqualified

    T.ScrollBar.vertical: VerticalScrollBar {
        onWorked: view.searched()
    }

    // A touch that stops the list does nothing else.
    TapArea {
        enabled: view.moving
        height: view.height
        parent: view
        width: view.width
    }

    // As very many rows go at once, all are shown anew.
    Connections {
        property var currentId

        target: view.model

        function onModelAboutToBeReset() {
            currentId = (view.currentItem as JobRow)?.job.id;
        }
        function onModelReset() {
            view.currentIndex = Math.max(0, view.model.indexOf(currentId));
            Qt.callLater(view.showCurrent); // qmllint disable
        }
    }

    JobMenu {
        id: menu

        model: view.converter
        onClosed: {
            if (!view.activeFocus)
                view.keepKeyboard();
        }
    }
}
