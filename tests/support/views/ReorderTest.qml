// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtTest
import Quorvale
import Quorvale.Testing

// A test of rows that are dragged with the mouse.
JobListTest {
    id: test

    readonly property int rowHeight: 56

    readonly property SignalSpy jobs: SignalSpy {
        signalName: "jobsChanged"
    }

    function showRows(count) {
        Bench.queueMany(count);
        show(lists);
        jobs.target = Bench.model;
        jobs.clear();
    }

    function row(number) {
        return one(list(), JobRow, row => row.job.fileName === nameOf(number));
    }

    function nameOf(number) {
        return "clip" + number + ".mov";
    }

    /// The picture of the row that is dragged.
    function lifted() {
        return all(view, JobRow, row => row.isLifted);
    }

    /// Where the row is shown, which is not where it belongs while others part for the dragged one.
    function shownTop(number) {
        return area(row(number)).y;
    }

    function tryTops(numbers, tops) {
        tryVerify(() => numbers.every((number, i) => Math.abs(shownTop(number) - tops[i]) < 0.51));
    }

    function names() {
        return Array.from(Bench.fileNames, name => parseInt(name.slice(4)));
    }

    /// Presses on a row and drags it without letting go.
    function drag(number, offset) {
        const item = row(number);
        const start = view.mapFromItem(item, 200, rowHeight / 2);
        mousePress(view, start.x, start.y);
        dragTo(start.y, start.y + offset);
    }

    property real pointerY: 0

    function dragTo(from, to) {
        const steps = 8;
        for (let i = 1; i <= steps; ++i)
            mouseMove(view, 216, from + (to - from) * i / steps, 5, Qt.LeftButton);
        pointerY = to;
    }

    function dragOn(offset) {
        dragTo(pointerY, pointerY + offset);
    }

    function letGo() {
        mouseRelease(view, 216, pointerY);
        settle();
    }
}
