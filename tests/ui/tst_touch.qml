// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import Quorvale
import Quorvale.Style
import Quorvale.Testing

// The list by a finger and by a pen.
JobListTest {
    id: test

    name: "Touch"

    readonly property var hands: [
        {
            "tag": "finger",
            "press": (x, y) => touchEvent(view).press(0, view, x, y).commit(),
            "move": (x, y) => touchEvent(view).move(0, view, x, y).commit(),
            "release": (x, y) => touchEvent(view).release(0, view, x, y).commit(),
        },
        {
            "tag": "pen",
            "press": (x, y) => Pen.press(view, x, y),
            "move": (x, y) => Pen.move(view, x, y),
            "release": (x, y) => Pen.release(view, x, y),
        },
    ]

    // Where rows are touched.
    readonly property int text: 216
    readonly property int handle: 30
    readonly property int removal: 613

    /// Each of the hands with each of these variations of a test.
    function withEach(variations) {
        const data = [];
        for (const hand of hands) {
            for (const variation of variations)
                data.push(Object.assign({}, hand, variation, {"tag": `${hand.tag} ${variation.tag}`}));
        }
        return data;
    }

    // Where the hand is.
    property var hand
    property point place

    function init_data() {
        return hands;
    }

    function press(x, y) {
        place = Qt.point(x, y);
        hand.press(x, y);
    }

    // A quick movement would do everything at its end.
    function moveTo(y) {
        const from = place.y;
        for (let i = 1; i <= 8; ++i) {
            place = Qt.point(place.x, from + (y - from) * i / 8);
            hand.move(place.x, place.y);
            wait(20);
        }
    }

    function release() {
        hand.release(place.x, place.y);
        settle();
    }

    function tap(x, y) {
        press(x, y);
        release();
    }

    /// Shows so many jobs to this hand, the first of which has the keyboard.
    function begin(data, count) {
        hand = data;
        showRows(count);
    }

    /// In the middle of the row of the index.
    function at(index) {
        const row = area(list().itemAtIndex(index));
        return row.y + row.height / 2;
    }

    function entries() {
        return all(overlay, DropMenuItem);
    }

    function names() {
        return Bench.fileNames.map(name => parseInt(name.slice(4)));
    }

    function isLifted() {
        return all(view, JobRow, row => row.isLifted).length > 0;
    }

    function startFlick() {
        press(text, 400);
        moveTo(150);
        release();
        verify(list().flicking);
    }

    function test_aTapMakesARowCurrent(data) {
        begin(data, 30);
        press(text, at(3));
        compare(list().currentIndex, 0);
        release();
        compare(list().currentIndex, 3);
        verify(list().currentItem.activeFocus);
        compare(entries(), []);
        compare(all(list(), FocusRing), []); // which is for the keyboard
    }

    function test_aFlickScrollsAndChoosesNothing(data) {
        begin(data, 30);
        press(text, at(5));
        moveTo(at(1));
        verify(list().contentY > 150, list().contentY);
        release();
        compare(list().currentIndex, 0);
        compare(names()[5], 6);
        compare(entries(), []);
    }

    function test_aTapThatStopsTheListDoesNothingElse_data() {
        return withEach([
            {"tag": "on a row", "x": text},
            {"tag": "on a handle", "x": handle},
            {"tag": "on a button", "x": removal},
        ]);
    }

    function test_aTapThatStopsTheListDoesNothingElse(data) {
        begin(data, 300);
        startFlick();
        press(data.x, 228);
        const y = list().contentY;
        release();
        fuzzyCompare(list().contentY, y, 1);
        verify(!list().moving);
        compare([list().currentIndex, Bench.fileNames.length], [0, 300]);
        compare(entries(), []);
        // And the next one is like any.
        tap(data.x, 228);
        verify(list().currentIndex > 0 || Bench.fileNames.length === 299);
    }

    // As long as it may wait there.
    function test_aTouchThatStopsTheListDragsIt_data() {
        return hands.slice(0, 1);
    }

    function test_aTouchThatStopsTheListDragsIt(data) {
        begin(data, 300);
        startFlick();
        press(text, 400);
        wait(Qt.styleHints.mousePressAndHoldInterval + 100);
        const y = list().contentY;
        moveTo(100);
        verify(list().contentY > y + 200, list().contentY - y);
        release();
    }

    function test_aLongPressOpensTheMenu_data() {
        return withEach([{"tag": "on a row", "x": text}, {"tag": "on a handle", "x": handle}]);
    }

    function test_aLongPressOpensTheMenu(data) {
        begin(data, 30);
        const y = at(3);
        const start = list().contentY;
        press(data.x, y);
        tryVerify(() => entries().length > 0);
        settle();
        compare(list().currentIndex, 3);
        fuzzyCompare(area(entries()[0]).x - data.x, 0, 8);
        fuzzyCompare(area(entries()[0]).y - y, 0, 8);
        // Nothing else comes of it.
        moveTo(y + 120);
        verify(!isLifted());
        release();
        wait(100);
        compare(list().contentY, start);
        compare(Array.from(names()), Array.from({"length": 30}, (_, i) => i + 1));
        verify(entries().length > 0);
        // The entries are for the next tap.
        const remove = area(entries().find(entry => entry.text === "Remove"));
        tap(remove.x + 20, remove.y + 10);
        compare(names().slice(2, 5), [3, 5, 6]);
        compare(entries(), []);
    }

    function test_aButtonIsPressedHoweverLong_data() {
        return hands.slice(0, 1);
    }

    function test_aButtonIsPressedHoweverLong(data) {
        begin(data, 5);
        press(removal, at(2));
        wait(Qt.styleHints.mousePressAndHoldInterval + 100);
        compare(entries(), []);
        release();
        compare(names(), [1, 2, 4, 5]);
        compare(entries(), []);
    }

    function test_theHandleDrags(data) {
        begin(data, 30);
        const start = list().contentY;
        const y = at(1);
        press(handle, y);
        moveTo(y + 2 * 56);
        verify(isLifted());
        // And no menu, however long.
        wait(Qt.styleHints.mousePressAndHoldInterval + 100);
        compare(entries(), []);
        verify(isLifted());
        release();
        verify(!isLifted());
        compare(names().slice(0, 5), [1, 3, 4, 2, 5]);
        compare(list().contentY, start);
        compare(list().currentIndex, 3);
        verify(list().currentItem.activeFocus);
        verify(list().interactive); // it scrolls on
    }

    function test_theHandleIsWideAndHighEnough_data() {
        return withEach([
            {"tag": "in its first corner", "x": 1, "y": 1},
            {"tag": "in its last corner", "x": Theme.target - 1, "y": 55},
        ]);
    }

    function test_theHandleIsWideAndHighEnough(data) {
        begin(data, 30);
        const row = area(list().itemAtIndex(2));
        press(row.x + data.x, row.y + data.y);
        moveTo(place.y + 56);
        release();
        compare(names().slice(0, 5), [1, 2, 4, 3, 5]);
    }

    function test_theDesktopTakesTheTouch_data() {
        return hands.slice(0, 1);
    }

    function test_theDesktopTakesTheTouch(data) {
        begin(data, 30);
        press(handle, at(1));
        moveTo(at(4));
        verify(isLifted());
        Finger.cancel(view);
        settle();
        verify(!isLifted());
        press(text, at(2));
        Finger.cancel(view);
        wait(Qt.styleHints.mousePressAndHoldInterval + 100);
        compare(names().slice(0, 5), [1, 2, 3, 4, 5]);
        compare(list().currentIndex, 1);
        compare(entries(), []);
        // And the next one is like any.
        tap(text, at(3));
        compare(list().currentIndex, 3);
    }

    function test_aDialogPutsTheRowBack(data) {
        begin(data, 30);
        press(handle, at(1));
        moveTo(at(4));
        verify(isLifted());
        verify(Bench.interruptByDialog());
        verify(!isLifted());
        moveTo(at(6));
        release();
        compare(names().slice(0, 5), [1, 2, 3, 4, 5]);
    }

    function test_twoFingers_data() {
        return [{"tag": "rows", "x": text}, {"tag": "handles", "x": handle}];
    }

    // They neither choose, nor move, nor hold anything up.
    function test_twoFingers(data) {
        begin(hands[0], 30);
        const both = touchEvent(view);
        both.press(0, view, data.x, at(1)).press(1, view, data.x, at(3)).commit();
        for (let i = 1; i <= 8; ++i) {
            both.move(0, view, data.x, at(1) - 4 * i).move(1, view, data.x, at(3) + 4 * i).commit();
            wait(20);
        }
        wait(Qt.styleHints.mousePressAndHoldInterval + 100);
        both.release(0, view, data.x, at(1)).release(1, view, data.x, at(3)).commit();
        settle();
        verify(!isLifted());
        compare(names().slice(0, 5), [1, 2, 3, 4, 5]);
        compare(entries(), []);
        tap(text, at(4));
        compare(list().currentIndex, 4);
        press(handle, at(1));
        moveTo(at(3));
        release();
        compare(names().slice(0, 5), [1, 3, 4, 2, 5]);
    }

    function test_theHandleScrollsDuringABatch(data) {
        begin(data, 30);
        Bench.chooseRealDestination();
        Bench.willStayAt([0.5]);
        verify(Bench.convert());
        settle();
        press(handle, at(5));
        moveTo(at(1));
        verify(!isLifted());
        verify(list().contentY > 150, list().contentY);
        release();
        compare(names()[5], 6);
    }

    function test_aPensSideButtonOpensTheMenu_data() {
        return hands.slice(1);
    }

    function test_aPensSideButtonOpensTheMenu(data) {
        begin(data, 5);
        Pen.tap(view, text, at(2), Qt.RightButton);
        tryVerify(() => entries().length > 0);
        compare(list().currentIndex, 2);
    }
}
