// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Templates as T
import Quorvale
import Quorvale.Style
import Quorvale.Testing

// The row that is converted, which the list follows.
JobListTest {
    name: "RunningRow"

    /// The row that is converted.
    property int running: -1

    /// Begins to convert so many rows; each stays at a half until goOn().
    function begin() {
        Bench.chooseRealDestination();
        for (let row = 0; row < Bench.model.jobCount; ++row)
            Bench.willStayAt([0.5]);
        verify(Bench.convert());
        running = 0;
        settle();
    }

    function goOn() {
        verify(Bench.goOn());
        ++running;
        settle();
    }

    function isRunningInSight() {
        const row = list().itemAtIndex(running);
        return row !== null && isInSight(row);
    }

    /// Goes on with so many, by which the list does not move.
    function goOnWithout(count) {
        const before = list().contentY;
        for (let i = 0; i < count; ++i)
            goOn();
        wait(400); // longer than it would glide
        fuzzyCompare(list().contentY, before, 0.5);
    }

    function test_isFollowedFromOneToTheNext() {
        showRows(20);
        begin();
        compare(list().contentY, list().originY - list().topMargin);
        let last = list().contentY;
        while (running < 19) {
            goOn();
            tryVerify(isRunningInSight);
            verify(list().contentY >= last, running);
            last = list().contentY;
        }
        const end = list().originY + list().contentHeight + list().bottomMargin - list().height;
        tryVerify(() => list().contentY === end);
    }

    function test_isBroughtIntoSightGently_data() {
        return [{"tag": "gliding", "animates": true}, {"tag": "at once", "animates": false}];
    }

    function test_isBroughtIntoSightGently(data) {
        Bench.animates = data.animates;
        showRows(60);
        const start = list().contentY;
        list().positionViewAtEnd();
        one(view, RunningRow).show(0);
        compare(list().contentY, data.animates ? start + list().height : start);
        tryVerify(() => list().contentY === start);
    }

    function test_isFoundAtTheStartOfEachBatch() {
        showRows(30);
        keyClick(Qt.Key_End);
        begin();
        tryVerify(isRunningInSight);
        keyClick(Qt.Key_End);
        verify(Bench.cancel());
        verify(!isRunningInSight());
        begin();
        tryVerify(isRunningInSight);
    }

    function test_isLeftToTheUser_data() {
        const bar = () => list().T.ScrollBar.vertical;
        return [
            {"tag": "wheel", "look": () => mouseWheel(list(), 200, 200, 0, -600)},
            {"tag": "flick", "look": () => {
                const finger = touchEvent(list());
                finger.press(0, list(), 200, 400).commit();
                for (let y = 380; y > 40; y -= 20)
                    finger.move(0, list(), 200, y).commit();
                finger.release(0, list(), 200, 40).commit();
            }},
            {"tag": "scroll bar", "look": () => mouseDrag(bar(), 6, 10, 0, 200)},
            {"tag": "scroll bar by assistive technology",
             "look": () => { for (let i = 0; i < 4; ++i) Assistant.act(bar(), "Increase"); }},
            {"tag": "keyboard", "look": () => keyClick(Qt.Key_PageDown)},
        ];
    }

    function test_isLeftToTheUser(data) {
        showRows(40);
        begin();
        data.look();
        tryVerify(() => !list().moving);
        verify(!isRunningInSight());
        goOnWithout(3);
        // As long as it is not in sight anyway.
        list().positionViewAtIndex(running, ListView.End);
        verify(isRunningInSight());
        goOn();
        tryVerify(isRunningInSight);
    }

    function test_isNotFollowedUnderTheHandOfTheUser_data() {
        return [
            {"tag": "menu", "hold": row => mouseClick(row, 200, 20, Qt.RightButton),
             "leave": () => keyClick(Qt.Key_Escape)},
            {"tag": "row", "hold": row => mousePress(row, 200, 20), "leave": row => mouseRelease(row, 200, 20)},
            {"tag": "button of a row",
             "hold": row => mousePress(one(row, SymbolButton)), "leave": row => mouseRelease(row, 200, 20)},
            {"tag": "finger", "hold": row => { touchEvent(row).press(0, row, 200, 20).commit(); },
             "leave": row => {
                 touchEvent(row).release(0, row, 200, 20).commit();
                 keyClick(Qt.Key_Escape); // a long press has opened the menu
             }},
            {"tag": "files that are dragged", "hold": () => { Bench.model.isDropTargeted = true; },
             "leave": () => { Bench.model.isDropTargeted = false; }},
        ];
    }

    function test_isNotFollowedUnderTheHandOfTheUser(data) {
        showRows(40);
        begin();
        const start = list().contentY;
        while (list().contentY === start)
            goOn();
        const row = list().itemAt(200, list().contentY + 100); // however far it has come
        data.hold(row); // while the list glides
        settle();
        goOnWithout(4);
        data.leave(row);
        settle();
        goOn();
        tryVerify(isRunningInSight);
    }
}
