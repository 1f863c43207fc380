// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import Quorvale

// Moves a row of a list by dragging it: the others part for it, the list scrolls at its edges, and
// Escape puts it back, as does what takes the pointer away. The drag changes the list only when the
// row is let go; what else changes the list meanwhile, or scrolls it, is followed.
Item {
    id: reorder

    required property ListView view

    /// The row that is dragged and the row that it would become; -1 while none is.
    property int from: -1
    property int to: -1
    readonly property bool isActive: from >= 0
    /// The job of that row, by which it is known whatever becomes of the rows.
    property var jobId
    /// Whether the others glide when they give way; not where the list itself moves them.
    property bool glides: false

    /// The row was let go where it changes the order: `destination` is counted before the row is
    /// taken out.
    signal moved(int from, int destination)

    property Item picture: null
    property real rowHeight: 0
    property real grip: 0 // of the pointer below the row's top
    property real pointerY: 0

    function shiftOf(row: int): real {
        if (from < row && row <= to)
            return -rowHeight;
        if (to <= row && row < from)
            return rowHeight;
        return 0;
    }

    function begin(position: point) {
        const y = position.y + view.contentY;
        const row = view.indexAt(view.width / 2, y);
        const item = view.itemAtIndex(row) as JobRow;
        if (!item)
            return;
        rowHeight = item.height;
        grip = y - item.y;
        pointerY = position.y;
        picture = pictureOf.createObject(reorder, {
            "model": item.model,
            "job": item.job,
            "progress": item.progress,
        });
        jobId = item.job.id;
        glides = true;
        to = row;
        from = row;
    }

    // Rows have come, gone or moved.
    function findRow() {
        if (!isActive)
            return;
        const row = view.model.indexOf(jobId);
        if (row < 0)
            return abandon();
        from = row;
        Qt.callLater(resume);
    }

    function resume() {
        view.forceLayout();
        follow();
        glides = isActive;
    }

    function follow() {
        if (!isActive)
            return;
        const middle = view.contentY + pointerY - grip + rowHeight / 2;
        const row = view.indexAt(view.width / 2, middle);
        if (row >= 0)
            to = row;
        else if (middle <= view.originY)
            to = 0;
        else if (middle >= view.originY + view.contentHeight)
            to = view.count - 1;
    }

    function abandon() {
        if (picture)
            picture.destroy();
        picture = null;
        from = -1;
        to = -1;
    }

    function finish() {
        resume();
        const first = from;
        const last = to;
        const gap = view.itemAtIndex(last);
        const top = gap ? gap.y + (last > first ? gap.height - rowHeight : 0) - view.contentY : 0;
        glides = false;
        abandon();
        if (first < 0 || first === last)
            return;
        moved(first, last > first ? last + 1 : last);
        // The list keeps its first row in sight where it is, the user looks at the gap.
        view.forceLayout();
        const row = view.itemAtIndex(last);
        if (gap && row)
            scrollTo(row.y - top);
    }

    function scrollTo(y: real) {
        const first = view.originY - view.topMargin;
        const last = view.originY + view.contentHeight + view.bottomMargin - view.height;
        view.contentY = Math.max(first, Math.min(last, y));
    }

    onEnabledChanged: {
        if (enabled)
            return;
        abandon();
        view.interactive = true;
    }
    Window.onActiveChanged: {
        if (!Window.active)
            abandon();
    }

    // qmllint disable unqualified
    component RowDrag: DragHandler {
        // By a press, which is for one drag.
        property bool mayBegin: false

        dragThreshold: 6
        enabled: reorder.enabled
        grabPermissions: PointerHandler.CanTakeOverFromAnything
        target: null

        onActiveChanged: {
            // A long press may have opened the menu.
            if (active && mayBegin && !reorder.view.isHeld)
                reorder.begin(centroid.pressPosition);
            mayBegin = false;
        }
        onCanceled: reorder.abandon()
        onGrabChanged: (transition, point) => {
            if (transition === PointerDevice.GrabPassive)
                mayBegin = true;
            else if (transition === PointerDevice.UngrabExclusive && EventPoints.isReleased(point))
                reorder.finish();
            else if (transition === PointerDevice.UngrabExclusive)
                reorder.abandon(); // as a dialog comes up
            // By a quick movement the list would scroll before it is a drag.
            reorder.view.interactive = transition !== PointerDevice.GrabPassive;
        }
        onCentroidChanged: {
            if (!active)
                return;
            reorder.pointerY = centroid.position.y;
            reorder.follow();
        }
    }
    // qmllint enable unqualified

    RowDrag {
        acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
        parent: reorder.view.parent
    }

    // Where the rows' handles are, by which a finger or a pen drags; elsewhere it scrolls. Below the
    // rows: a pen's press that a handler has got before the rows do does not reach them.
    Item {
        height: reorder.height
        parent: reorder.view.parent
        width: (reorder.view.currentItem as JobRow)?.handleReach ?? 0
        x: reorder.view.leftMargin
        z: -1

        RowDrag {
            acceptedDevices: PointerDevice.TouchScreen | PointerDevice.Stylus
            enabled: reorder.enabled && (!reorder.view.moving || active) // or it stops the list
            onActiveChanged: {
                if (active)
                    (reorder.view.itemAtIndex(reorder.from) as JobRow)?.lift();
            }
        }
    }

    Connections {
        target: reorder.view.model

        // Nothing glides where the list itself moves it.
        function onRowsAboutToBeInserted() {
            reorder.glides = false;
        }
        function onRowsAboutToBeMoved() {
            reorder.glides = false;
        }
        function onRowsAboutToBeRemoved() {
            reorder.glides = false;
        }
        function onRowsInserted() {
            reorder.findRow();
        }
        function onRowsMoved() {
            reorder.findRow();
        }
        function onRowsRemoved() {
            reorder.findRow();
        }
        function onModelReset() {
            reorder.glides = false;
            reorder.abandon();
        }
    }

    Connections {
        target: reorder.view

        // When the list has made the rows that come into sight.
        function onContentYChanged() {
            Qt.callLater(reorder.follow); // qmllint disable
        }
        function onOriginYChanged() {
            Qt.callLater(reorder.follow); // qmllint disable
        }
    }

    Shortcut {
        enabled: reorder.isActive
        sequence: "Escape"
        onActivated: reorder.abandon()
    }

    Timer {
        id: edgeScroll

        readonly property real reach: 36
        readonly property real speed: reorder.pointerY < reach ? reorder.pointerY - reach
                                    : Math.max(0, reorder.pointerY - reorder.height + reach)

        interval: 16
        repeat: true
        running: reorder.isActive && edgeScroll.speed !== 0
        onTriggered: {
            const step = Math.max(-24, Math.min(24, edgeScroll.speed / 2));
            reorder.scrollTo(reorder.view.contentY + step);
        }
    }

    // qmllint disable unqualified
    Component {
        id: pictureOf

        JobRow {
            isLifted: true
            width: reorder.view.width - reorder.view.leftMargin - reorder.view.rightMargin
            x: reorder.view.leftMargin
            y: Math.max(0, Math.min(reorder.height - height, reorder.pointerY - reorder.grip))
        }
    }
    // qmllint enable unqualified
}
