// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import Quorvale
import Quorvale.Style
import Quorvale.Testing

// The list by the keyboard, and which row that works on.
ViewTest {
    id: test

    name: "JobListView"

    Component {
        id: lists

        JobList {
            height: 460
            model: Bench.model
            width: 649
        }
    }

    Component {
        id: fields

        TextEdit {}
    }

    /// What is in the clipboard.
    function pasted() {
        const field = createTemporaryObject(fields, test);
        field.paste();
        return field.text;
    }

    function showRows(count) {
        Bench.queueMany(count);
        show(lists);
        list().currentItem.forceActiveFocus(Qt.TabFocusReason);
    }

    function list() {
        return one(view, JobListView);
    }

    function focusItem() {
        return test.Window.window.activeFocusItem;
    }

    function isInSight(item) {
        const found = area(item, list());
        return found.y >= -0.5 && found.y + found.height <= list().height + 0.5;
    }

    function compareCurrent(index) {
        compare(list().currentIndex, index);
        settle();
        tryVerify(() => list().currentItem && isInSight(list().currentItem), 1000,
                  "at " + index + ": " + area(list().currentItem, list()));
        verify(list().currentItem.activeFocus);
        compare(list().currentItem.job.fileName, "clip" + (index + 1) + ".mov");
    }

    function test_theFirstIsCurrent() {
        showRows(5);
        compareCurrent(0);
        compare(all(view, FocusRing).length, 1);
    }

    function test_upAndDown() {
        showRows(30);
        keyClick(Qt.Key_Up);
        compareCurrent(0);
        for (let i = 1; i < 30; ++i) {
            keyClick(Qt.Key_Down);
            compareCurrent(i);
        }
        keyClick(Qt.Key_Down);
        compareCurrent(29);
        keyClick(Qt.Key_Up);
        compareCurrent(28);
    }

    function test_homeAndEnd() {
        showRows(1000);
        keyClick(Qt.Key_End);
        compareCurrent(999);
        keyClick(Qt.Key_Home);
        compareCurrent(0);
    }

    function test_pages() {
        showRows(40);
        keyClick(Qt.Key_PageDown);
        const page = list().currentIndex;
        verify(page >= 5 && page <= 8, page);
        compareCurrent(page);
        keyClick(Qt.Key_PageDown);
        compareCurrent(2 * page);
        keyClick(Qt.Key_PageUp);
        compareCurrent(page);
        keyClick(Qt.Key_PageUp);
        keyClick(Qt.Key_PageUp);
        compareCurrent(0);
        for (let i = 0; i < 10; ++i)
            keyClick(Qt.Key_PageDown);
        compareCurrent(39);
    }

    /// That there is a row to see wherever the list has one.
    function verifyRowsAreShown() {
        settle();
        for (let y = 10; y < list().height - 10; y += 56) {
            const index = list().indexAt(list().width / 2, list().contentY + y);
            const row = list().itemAtIndex(index) as JobRow;
            verify(row, `no row ${index}`);
            verify(row.visible, `row ${index} is hidden`);
            compare(row.job.fileName, "clip" + (index + 1) + ".mov");
        }
    }

    // Rows that have gone out of sight are used again.
    function test_rowsFarAwayAreShown() {
        showRows(300);
        for (let i = 0; i < 5; ++i) {
            list().contentY += 700;
            verifyRowsAreShown();
        }
        keyClick(Qt.Key_End);
        verifyRowsAreShown();
        keyClick(Qt.Key_Home);
        verifyRowsAreShown();
    }

    function areRowsStackedInOrder() {
        const rows = all(list().contentItem, JobRow);
        // The current row is kept wherever it is; those that wait to be used again are not read.
        const current = list().currentIndex;
        const indices = rows.map(row => row.index);
        return rows.length >= 5 && indices.slice(1).every((index, i) => {
            const isNext = index === indices[i] + 1;
            return index > indices[i] && (isNext || indices[i] === current || index === current);
        });
    }

    // As assistive technology reads them, once the rows beyond both ends are there, too.
    function verifyRowsAreStackedInOrder() {
        settle();
        tryVerify(areRowsStackedInOrder);
    }

    function test_rowsAreReadInTheirOrder() {
        showRows(300);
        verifyRowsAreStackedInOrder();
        Bench.model.moveJob(list().itemAtIndex(4).job.id, -3);
        verifyRowsAreStackedInOrder();
        for (const y of [700, 1400, 9000, 8000, 400]) {
            list().contentY = y;
            verifyRowsAreStackedInOrder();
        }
        keyClick(Qt.Key_End);
        verifyRowsAreStackedInOrder();
        keyClick(Qt.Key_Home);
        verifyRowsAreStackedInOrder();
    }

    function test_rowsKeepClearOfTheListsEnds() {
        showRows(30);
        fuzzyCompare(area(list().itemAtIndex(0)).y, 6, 0.51);
        for (let i = 0; i < 20; ++i)
            mouseWheel(list(), 300, 200, 0, -1200);
        tryVerify(() => list().atYEnd && !list().moving);
        settle();
        fuzzyCompare(area(list().itemAtIndex(29)).y + 56, 460 - 6, 0.51);
    }

    function test_rowsAreCutAtTheListsEnds() {
        showRows(30);
        list().contentY = 340;
        settle();
        const handle = symbolOf(list().itemAtIndex(14), Symbol.Lines); // just below the end
        verify(area(handle).y >= 460 && area(handle).y < 480);
        compare(Pixels.count(handle, Theme.current.window), handle.width * handle.height);
    }

    // With a finger; the mouse moves rows.
    function test_stopsAtItsEnds() {
        showRows(30);
        const start = list().contentY;
        const touch = touchEvent(list());
        touch.press(0, list(), 300, 100).commit();
        for (let y = 110; y <= 300; y += 10) {
            touch.move(0, list(), 300, y).commit();
            compare(list().contentY, start);
        }
        touch.release(0, list(), 300, 300).commit();
    }

    function test_scrollsByTouch() {
        showRows(30);
        const finger = touchEvent(list());
        finger.press(0, list(), 300, 400).commit();
        for (let y = 390; y >= 100; y -= 10)
            finger.move(0, list(), 300, y).commit();
        verify(list().contentY > 200, list().contentY);
        finger.release(0, list(), 300, 100).commit();
    }

    // Or what is pressed would be another row's, or nothing.
    function test_aPressDoesNotScroll() {
        showRows(30);
        list().contentY = 20;
        settle();
        const cut = list().itemAtIndex(8);
        verify(!isInSight(cut));
        const remove = one(cut, SymbolButton, b => b.text === "Remove from queue");
        mouseClick(remove, 12, 4);
        settle();
        compare(list().contentY, 20);
        verify(!Bench.fileNames.includes("clip9.mov"));
        compareCurrentIs(8, "clip10.mov");
        keyClick(Qt.Key_Down);
        keyClick(Qt.Key_Up);
        verify(isInSight(list().currentItem));
    }

    function test_theCurrentRowComesIntoSightWithTheKeyboard() {
        showRows(30);
        list().currentItem.focus = false;
        list().contentY = 700;
        settle();
        list().currentItem.forceActiveFocus(Qt.BacktabFocusReason);
        compareCurrent(0);
    }

    // With very many gaps, which the list does not follow one by one.
    function test_theCurrentRowStaysWhenAllAreShownAnew() {
        showRows(2100);
        keyClick(Qt.Key_End);
        keyClick(Qt.Key_Up);
        Bench.completeEverySecond();
        Bench.model.clearCompleted();
        settle();
        compareCurrentIs(1049, "clip2099.mov");
        verify(isInSight(list().currentItem));
        Bench.completeEverySecond();
        keyClick(Qt.Key_Up);
        compareCurrentIs(1048, "clip2097.mov");
    }

    function test_theRingIsForTheKeyboard() {
        showRows(5);
        const rings = () => all(list(), FocusRing).length;
        const row = index => list().itemAtIndex(index);
        const removeButton = index => one(row(index), SymbolButton, b => b.text === "Remove from queue");
        const steps = [
            [() => mouseClick(row(2), 200, 20), 0],
            [() => keyClick(Qt.Key_Down), 1],
            [() => mouseClick(row(3), 200, 20), 0], // which has the keyboard
            [() => keyClick(Qt.Key_Tab), 1],
            [() => keyClick(Qt.Key_Backtab), 1],
            [() => mouseClick(removeButton(2)), 0],
            [() => keyClick(Qt.Key_Delete), 1],
        ];
        steps.forEach(([step, count], i) => {
            step();
            settle();
            compare(rings(), count, i);
        });
    }

    function test_tabGoesThroughTheCurrentRowOnly() {
        showRows(5);
        keyClick(Qt.Key_Down);
        compareCurrent(1);
        const seen = [];
        for (let i = 0; i < 3; ++i) {
            keyClick(Qt.Key_Tab);
            seen.push(focusItem().text);
            let owner = focusItem();
            while (!(owner instanceof JobRow))
                owner = owner.parent;
            compare(owner.job.fileName, "clip2.mov");
        }
        compare(seen, ["Move up", "Move down", "Remove from queue"]);
        keyClick(Qt.Key_Tab);
        verify(!(focusItem() instanceof SymbolButton));
    }

    function test_tabPassesByWhatWasRemoved() {
        showRows(4);
        keyClick(Qt.Key_Down);
        Bench.model.remove(list().currentItem.job.id);
        settle();
        const current = list().currentItem;
        compare(current.job.fileName, "clip3.mov");
        current.forceActiveFocus(Qt.TabFocusReason);
        for (let i = 0; i < 3; ++i) {
            keyClick(Qt.Key_Tab);
            verify(all(current, SymbolButton).includes(focusItem()));
        }
        for (let i = 0; i < 3; ++i)
            keyClick(Qt.Key_Backtab, Qt.ShiftModifier);
        verify(current.activeFocus);
        for (let i = 0; i < 5; ++i) {
            keyClick(Qt.Key_Backtab, Qt.ShiftModifier);
            for (let item = focusItem(); item; item = item.parent)
                verify(!(item instanceof JobRow) || item === current, `${item}`);
        }
    }

    function test_copiesTheWholeFailureOfTheCurrentRow() {
        const message = Array.from({"length": 8}, (_, i) => "  line " + i).join("\n");
        Bench.queue(["failed.mkv", "completed.mkv"]);
        show(lists);
        Bench.chooseRealDestination();
        Bench.willFail(message);
        Bench.willComplete();
        verify(Bench.convert());
        list().currentItem.forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_C, Qt.ControlModifier);
        compare(pasted(), message);
        // Where there is none, the clipboard keeps what it has.
        keyClick(Qt.Key_Down);
        compare(list().currentItem.job.fileName, "completed.mkv");
        keyClick(Qt.Key_C, Qt.ControlModifier);
        compare(pasted(), message);
    }

    function test_copiesFromAButton() {
        Bench.queue(["clip.mkv"]);
        show(lists);
        Bench.chooseRealDestination();
        Bench.willFail("No space left on device.");
        verify(Bench.convert());
        list().currentItem.forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Tab);
        compare(focusItem().text, "Move up");
        keyClick(Qt.Key_C, Qt.ControlModifier);
        compare(pasted(), "No space left on device.");
    }

    function test_arrowsFromAButton() {
        showRows(5);
        keyClick(Qt.Key_Tab);
        compare(focusItem().text, "Move up");
        keyClick(Qt.Key_End);
        compare(list().currentIndex, 4);
        verify(isInSight(list().currentItem));
    }

    function test_removingTheCurrentRowKeepsTheKeyboard() {
        showRows(5);
        keyClick(Qt.Key_Down);
        for (let i = 0; i < 3; ++i)
            keyClick(Qt.Key_Tab);
        compare(focusItem().text, "Remove from queue");
        keyClick(Qt.Key_Return);
        compare(Bench.fileNames, ["clip1.mov", "clip3.mov", "clip4.mov", "clip5.mov"]);
        settle();
        // Goes on from the row that took its place.
        keyClick(Qt.Key_Down);
        settle();
        verify(list().currentItem.activeFocus);
        verify(list().currentIndex >= 1);
    }

    function test_deleteRemovesTheCurrentRow() {
        showRows(4);
        keyClick(Qt.Key_Down);
        keyClick(Qt.Key_Delete);
        compare(Bench.fileNames, ["clip1.mov", "clip3.mov", "clip4.mov"]);
        settle();
        verify(list().currentItem.activeFocus);
        compare(list().currentItem.job.fileName, "clip3.mov");
        // From a button of the row, too.
        keyClick(Qt.Key_Tab);
        compare(focusItem().text, "Move up");
        keyClick(Qt.Key_Delete);
        compare(Bench.fileNames, ["clip1.mov", "clip4.mov"]);
        settle();
        verify(list().currentItem.activeFocus);
        keyClick(Qt.Key_Delete);
        settle();
        keyClick(Qt.Key_Delete);
        compare(Bench.fileNames, []);
    }

    function test_deleteLeavesWhatIsConverted() {
        Bench.queue(["a.mkv", "b.mkv"]);
        show(lists);
        Bench.chooseRealDestination();
        Bench.willStayAt([0.5]);
        verify(Bench.convert());
        list().currentItem.forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Delete);
        compare(Bench.fileNames, ["a.mkv", "b.mkv"]);
        keyClick(Qt.Key_Down);
        keyClick(Qt.Key_Delete);
        compare(Bench.fileNames, ["a.mkv"]);
    }

    function test_altAndArrowsMoveTheCurrentRow() {
        showRows(30);
        keyClick(Qt.Key_Down, Qt.AltModifier);
        compare(Bench.fileNames.slice(0, 3), ["clip2.mov", "clip1.mov", "clip3.mov"]);
        compareCurrentIs(1, "clip1.mov");
        keyClick(Qt.Key_Up, Qt.AltModifier);
        keyClick(Qt.Key_Up, Qt.AltModifier);
        compareCurrentIs(0, "clip1.mov");
        for (let i = 0; i < 20; ++i)
            keyClick(Qt.Key_Down, Qt.AltModifier);
        compareCurrentIs(20, "clip1.mov");
        verify(isInSight(list().currentItem));
    }

    function button(row, text) {
        return one(row, SymbolButton, button => button.text === text);
    }

    function touch(item, x, y) {
        const finger = touchEvent(item);
        finger.press(0, item, x, y).commit();
        finger.release(0, item, x, y).commit();
    }

    // By what a row is worked, while the first one has the keyboard or nothing has it.
    readonly property var means: [
        {"tag": "press", "work": row => mouseClick(row, 200, 20)},
        {"tag": "press on its text", "work": row => mouseClick(textOf(row, row.job.fileName))},
        {"tag": "press on its handle", "work": row => mouseClick(symbolOf(row, Symbol.Lines))},
        {"tag": "middle button", "work": row => mouseClick(row, 200, 20, Qt.MiddleButton)},
        {"tag": "right button on a button", "work": row => {
            mouseClick(button(row, "Move up"), 12, 12, Qt.RightButton);
            keyClick(Qt.Key_Escape);
        }},
        {"tag": "touch", "work": row => touch(row, 200, 20)},
        {"tag": "its button", "work": row => mouseClick(button(row, "Move down")), "moves": 1},
        {"tag": "touch on its button", "work": row => touch(button(row, "Move up"), 12, 12), "moves": -1},
        {"tag": "its button by assistive technology, with the keyboard elsewhere in the list",
         "work": row => {
            list().currentItem.forceActiveFocus(Qt.TabFocusReason);
            Assistant.act(button(row, "Move down"), "Press");
        }, "moves": 1},
        {"tag": "keyboard of its button", "work": row => button(row, "Move up").forceActiveFocus(Qt.OtherFocusReason)},
    ]

    // What keys do to the current row: the queue is compared with what it becomes by that.
    readonly property var effects: [
        {"tag": "Delete", "work": () => keyClick(Qt.Key_Delete), "order": without},
        {"tag": "Alt+Down", "work": () => keyClick(Qt.Key_Down, Qt.AltModifier),
         "order": (names, at) => swapped(names, at, at + 1)},
        {"tag": "Alt+Up", "work": () => keyClick(Qt.Key_Up, Qt.AltModifier),
         "order": (names, at) => swapped(names, at, at - 1)},
        {"tag": "Ctrl+C", "work": () => {
            keyClick(Qt.Key_C, Qt.ControlModifier);
            compare(pasted(), "no clip4.mov");
        }, "order": names => names},
        {"tag": "menu key", "work": () => {
            keyClick(Qt.Key_Menu);
            tryVerify(() => all(overlay, DropMenuItem).length > 0);
            mouseClick(all(overlay, DropMenuItem).find(entry => entry.text === "Remove"));
        }, "order": without},
    ]

    function without(names, at) {
        return names.filter((_, i) => i !== at);
    }

    function swapped(names, one, other) {
        const order = names.slice();
        [order[one], order[other]] = [names[other], names[one]];
        return order;
    }

    function test_keysActOnTheRowThatWasWorkedLast_data() {
        const data = [];
        for (const way of means) {
            for (const effect of effects)
                data.push({"tag": `${way.tag}, ${effect.tag}`, "way": way, "effect": effect});
        }
        return data;
    }

    function test_keysActOnTheRowThatWasWorkedLast(data) {
        Bench.queueMany(7);
        show(lists);
        if (data.effect.tag === "Ctrl+C") {
            Bench.chooseRealDestination();
            Bench.fileNames.forEach(name => Bench.willFail("no " + name));
            verify(Bench.convert());
            settle();
        }
        const row = list().itemAtIndex(3);
        const names = Array.from(Bench.fileNames);
        const at = 3 + (data.way.moves ?? 0);
        const order = data.way.moves ? swapped(names, 3, at) : names;
        data.way.work(row);
        compare(Bench.fileNames, order);
        settle();
        compare([list().currentIndex, list().currentItem], [at, row]);
        // Which can be seen, where the pointer has been, too.
        restPointer();
        compare(order.map((_, i) => Qt.colorEqual(Pixels.at(list().itemAtIndex(i), 250, 3), Theme.current.window)),
                order.map(name => name !== "clip4.mov"));
        data.effect.work();
        compare(Bench.fileNames, data.effect.order(order, at));
    }

    function compareCurrentIs(index, name) {
        settle();
        compare(list().currentIndex, index);
        compare(list().currentItem.job.fileName, name);
        verify(list().currentItem.activeFocus);
    }
}
