// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import Quorvale
import Quorvale.Style
import Quorvale.Testing

// The row that was worked last, and what the keys do to it.
JobListTest {
    name: "CurrentRow"

    function button(row, text) {
        return one(row, SymbolButton, button => button.text === text);
    }

    function touch(item, x, y) {
        const finger = touchEvent(item);
        finger.press(0, item, x, y).commit();
        finger.release(0, item, x, y).commit();
    }

    function compareCurrentIs(index, name) {
        settle();
        compare(list().currentIndex, index);
        compare(list().currentItem.job.fileName, name);
        verify(list().currentItem.activeFocus);
    }

    // By what a row is worked, while the first one has the keyboard or nothing has it. The examples
    // are for the row and for a button of it, where all keys are tried.
    readonly property var means: [
        {"tag": "press", "isExample": true, "work": row => mouseClick(row, 200, 20)},
        {"tag": "press on its text", "work": row => mouseClick(textOf(row, row.job.fileName))},
        {"tag": "press on its handle", "work": row => mouseClick(symbolOf(row, Symbol.Lines))},
        {"tag": "middle button", "work": row => mouseClick(row, 200, 20, Qt.MiddleButton)},
        {"tag": "right button on a button", "work": row => {
            mouseClick(button(row, "Move up"), 12, 12, Qt.RightButton);
            keyClick(Qt.Key_Escape);
        }},
        {"tag": "touch", "work": row => touch(row, 200, 20)},
        {"tag": "pen", "work": row => Pen.tap(row, 200, 20)},
        {"tag": "its button", "work": row => mouseClick(button(row, "Move down")), "moves": 1},
        {"tag": "touch on its button", "work": row => touch(button(row, "Move up"), 12, 12), "moves": -1},
        {"tag": "pen on its button", "work": row => Pen.tap(button(row, "Move up"), 12, 12), "moves": -1},
        {"tag": "its button by assistive technology, with the keyboard elsewhere in the list",
         "work": row => {
            list().currentItem.forceActiveFocus(Qt.TabFocusReason);
            Assistant.act(button(row, "Move down"), "Press");
        }, "moves": 1},
        {"tag": "keyboard of its button", "isExample": true,
         "work": row => button(row, "Move up").forceActiveFocus(Qt.OtherFocusReason)},
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
            for (const effect of way.isExample ? effects : effects.slice(0, 1))
                data.push({"tag": `${way.tag}, ${effect.tag}`, "way": way, "effect": effect});
        }
        return data;
    }

    function test_keysActOnTheRowThatWasWorkedLast(data) {
        Bench.queueMany(7);
        show(lists, {"height": 600}); // with room for all, whatever they say
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

    function test_copiesTheWholeMessageOfTheCurrentRow() {
        const message = Array.from({"length": 8}, (_, i) => "  line " + i).join("\n");
        Bench.queue(["failed.mkv", "completed.mkv", "remarked.mkv"]);
        show(lists);
        Bench.chooseRealDestination();
        Bench.willFail(message);
        Bench.willComplete();
        Bench.willEndEarly();
        verify(Bench.convert());
        list().currentItem.forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_C, Qt.ControlModifier);
        compare(pasted(), message);
        // Where there is none, the clipboard keeps what it has.
        keyClick(Qt.Key_Down);
        compare(list().currentItem.job.fileName, "completed.mkv");
        keyClick(Qt.Key_C, Qt.ControlModifier);
        compare(pasted(), message);
        keyClick(Qt.Key_Down);
        keyClick(Qt.Key_C, Qt.ControlModifier);
        compare(pasted(), "The source ends early: 0:06 of 0:10.");
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

    function test_aDoubleClickShowsTheFile() {
        Bench.queue(["failed.mkv", "complete.mkv", "cancelled.mkv"]);
        show(lists);
        Bench.chooseRealDestination();
        Bench.willFail("No space left on device");
        Bench.willComplete();
        Bench.willBeCancelled();
        verify(Bench.convert());
        settle();
        ["/failed.mkv", "/complete_converted.mp4", "/cancelled.mkv"].forEach((ending, i) => {
            mouseDoubleClickSequence(list().itemAtIndex(i), 200, 20);
            compare(Bench.revealedFolders.length, i + 1);
            verify(Bench.revealedFolders[i].endsWith(ending), Bench.revealedFolders[i]);
            compare(list().currentIndex, i);
        });
    }

    function test_noDoubleClickOfARow_data() {
        const row = index => list().itemAtIndex(index);
        const clickAgain = row => {
            Bench.pressAgain(row, 200, 20);
            mouseRelease(row, 200, 20);
        };
        return [
            {"tag": "right", "work": () => {
                mouseDoubleClickSequence(row(1), 200, 20, Qt.RightButton);
                keyClick(Qt.Key_Escape);
            }},
            {"tag": "middle", "work": () => mouseDoubleClickSequence(row(1), 200, 20, Qt.MiddleButton)},
            {"tag": "on a button", "work": () => mouseDoubleClickSequence(button(row(1), "Move up"), 12, 12)},
            {"tag": "first on a button", "work": () => {
                mouseClick(button(row(0), "Move up"), 12, 12);
                clickAgain(row(0));
            }},
            {"tag": "first on another row", "work": () => {
                mouseClick(row(0), 200, 20);
                clickAgain(row(1));
            }},
            {"tag": "slow", "work": () => {
                mouseClick(row(1), 200, 20);
                wait(Qt.styleHints.mouseDoubleClickInterval + 50);
                clickAgain(row(1));
            }},
        ];
    }

    function test_noDoubleClickOfARow(data) {
        showRows(3);
        data.work();
        compare(Bench.revealedFolders, []);
        // And after all that there is one.
        const row = list().itemAtIndex(2);
        mouseDoubleClickSequence(row, 200, 20);
        compare(Bench.revealedFolders, ["/in/" + row.job.fileName]);
    }

    // As when a row is pressed to make it the current one, and dragged at once.
    function test_aDragIsNoDoubleClick() {
        showRows(3);
        const row = list().itemAtIndex(0);
        mouseClick(row, 200, 20);
        Bench.pressAgain(row, 200, 20);
        for (let y = 20; y <= 100; y += 10)
            mouseMove(row, 200, y, 5, Qt.LeftButton);
        mouseRelease(row, 200, 100);
        compare(Bench.fileNames, ["clip2.mov", "clip1.mov", "clip3.mov"]);
        compare(Bench.revealedFolders, []);
    }
}
