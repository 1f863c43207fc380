// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Templates as T
import Quorvale
import Quorvale.Style

// Brings the row of the job that is converted into sight, from one job to the next, as long as the
// user has the list show nothing else.
Item {
    id: running

    required property ConverterViewModel converter
    required property JobListView view

    /// Not since the user has scrolled, until a row that is converted is in sight anyway.
    property bool isFollowed: true
    /// The job that is converted, or was last.
    property var jobId
    /// What the user is about to do is done to what is below the pointer.
    readonly property bool isHeld: view.isHeld || press.active || converter.isDropTargeted

    onIsHeldChanged: glide.stop()

    /// The user has the list show something.
    function leave() {
        glide.stop();
        isFollowed = false;
    }

    function follow(job: var) {
        if (jobId && view.isInSight(view.model.indexOf(jobId)))
            isFollowed = true;
        jobId = job;
        const row = view.model.indexOf(job);
        if (isFollowed && !isHeld && !view.isInSight(row))
            show(row);
    }

    // With the row below it, so that something is seen to come.
    function show(index: int) {
        const from = view.contentY;
        view.showRow(Math.min(index + 1, view.count - 1));
        view.showRow(index);
        const to = view.contentY;
        if (!Theme.animates)
            return;
        // Of a long way the last page only, where the rows are that the list has just made.
        glide.from = Math.max(to - view.height, Math.min(to + view.height, from));
        glide.to = to;
        view.contentY = glide.from;
        glide.restart();
    }

    NumberAnimation {
        id: glide

        duration: 300
        easing.type: Easing.OutCubic // at once, as the next job may be a short one
        property: "contentY"
        target: running.view
    }

    // Over the rows, as what they take comes no further.
    PointHandler {
        id: press

        acceptedButtons: Qt.AllButtons
    }

    Connections {
        target: running.converter

        function onIsConvertingChanged() {
            if (running.converter.isConverting)
                running.isFollowed = true;
        }
    }

    Connections {
        target: running.view.model

        // When the row is as high as it is now.
        function onBegun(id) {
            Qt.callLater(running.follow, id); // qmllint disable
        }
    }

    Connections {
        target: running.view

        function onSearched() {
            running.leave();
        }
    }
}
