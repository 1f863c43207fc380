// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtTest
import Quorvale
import Quorvale.Style
import Quorvale.Testing

// What the buttons of a row do.
JobListTest {
    id: test

    readonly property var names: ["a.mp4", "b.mp4", "c.mp4"]

    name: "JobControls"

    SignalSpy {
        id: jobs

        signalName: "jobsChanged"
    }

    function init() {
        failOnWarning(/.?/);
        Bench.begin();
        restPointer();
        Bench.queue(names);
        show(lists);
        jobs.target = Bench.model;
        jobs.clear();
    }

    function row(fileName) {
        return one(view, JobRow, row => row.job.fileName === fileName);
    }

    function button(fileName, text) {
        return one(row(fileName), SymbolButton, button => button.text === text);
    }

    function press(fileName, text) {
        mouseClick(button(fileName, text));
        settle();
    }

    function test_moving_data() {
        return [
            {"tag": "up", "file": "b.mp4", "button": "Move up", "order": ["b.mp4", "a.mp4", "c.mp4"]},
            {"tag": "down", "file": "b.mp4", "button": "Move down", "order": ["a.mp4", "c.mp4", "b.mp4"]},
            {"tag": "first down", "file": "a.mp4", "button": "Move down", "order": ["b.mp4", "a.mp4", "c.mp4"]},
            {"tag": "last up", "file": "c.mp4", "button": "Move up", "order": ["a.mp4", "c.mp4", "b.mp4"]},
        ];
    }

    function test_moving(data) {
        press(data.file, data.button);
        compare(Bench.fileNames, data.order);
        compare(jobs.count, 1);
        // As they stand below each other, too.
        const tops = data.order.map(name => area(row(name)).y);
        verify(tops[0] < tops[1] && tops[1] < tops[2], tops);
    }

    function test_movingBeyondTheEndsChangesNothing() {
        verify(button("a.mp4", "Move up").enabled);
        verify(button("c.mp4", "Move down").enabled);
        press("a.mp4", "Move up");
        press("c.mp4", "Move down");
        compare(Bench.fileNames, names);
        compare(jobs.count, 0);
    }

    function test_movingKeepsRowAndFocus() {
        const moved = row("c.mp4");
        const up = button("c.mp4", "Move up");
        press("c.mp4", "Move up");
        compare(row("c.mp4"), moved);
        verify(up.activeFocus);
        keyClick(Qt.Key_Space);
        compare(Bench.fileNames, ["c.mp4", "a.mp4", "b.mp4"]);
        verify(up.activeFocus);
        compare(jobs.count, 2);
    }

    function test_removing_data() {
        return names.map(name => ({"tag": name}));
    }

    function test_removing(data) {
        press(data.tag, "Remove from queue");
        compare(Bench.fileNames, names.filter(name => name !== data.tag));
        compare(jobs.count, 1);
        compare(Bench.openedPanels, []);
    }

    function test_queueingAgain() {
        Bench.chooseRealDestination();
        for (let i = 0; i < 3; ++i)
            Bench.willComplete();
        verify(Bench.convert());
        settle();
        compare(Bench.model.completedCount, 3);
        press("b.mp4", "Queue this video again");
        compare(Bench.model.completedCount, 2);
        compare(Bench.fileNames, names);
        compare(all(row("b.mp4"), SymbolButton).length, 3);
        compare(all(row("a.mp4"), SymbolButton).length, 1);
        verify(shows(row("b.mp4"), "Ready"));
    }

    function test_queueingAgainByKeyKeepsTheKeyboardInTheRow() {
        Bench.chooseRealDestination();
        for (let i = 0; i < 3; ++i)
            Bench.willComplete();
        verify(Bench.convert());
        settle();
        button("a.mp4", "Queue this video again").forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Space);
        compare(Bench.model.completedCount, 2);
        verify(button("a.mp4", "Move up").visualFocus);
    }

    function test_theKeyboardGoesOnFromARowThatIsRemoved_data() {
        const data = [];
        const means = [
            {"tag": "key", "isByKey": true, "remove": file => {
                button(file, "Remove from queue").forceActiveFocus(Qt.TabFocusReason);
                keyClick(Qt.Key_Space);
            }},
            {"tag": "mouse", "isByKey": false, "remove": file => mouseClick(button(file, "Remove from queue"))},
            {"tag": "menu", "isByKey": false, "remove": file => {
                mouseClick(row(file), 200, 20, Qt.RightButton);
                const remove = () => all(overlay, DropMenuItem).find(entry => entry.text === "Remove");
                tryVerify(remove);
                mouseClick(remove());
            }},
            {"tag": "assistive technology", "isByKey": true, "remove": file => {
                row("a.mp4").forceActiveFocus(Qt.TabFocusReason);
                Assistant.act(button(file, "Remove from queue"), "Press");
            }},
        ];
        for (const way of means) {
            for (const [file, next] of [["a.mp4", "b.mp4"], ["b.mp4", "c.mp4"], ["c.mp4", "b.mp4"]])
                data.push({"tag": `${file} by ${way.tag}`, "way": way, "file": file, "next": next});
        }
        return data;
    }

    // To the one that took its place, and is shown there as it was before.
    function test_theKeyboardGoesOnFromARowThatIsRemoved(data) {
        data.way.remove(data.file);
        const left = names.filter(name => name !== data.file);
        compare(Bench.fileNames, left);
        settle();
        const list = one(view, JobListView);
        compare(list.currentItem, row(data.next));
        tryVerify(() => row(data.next).activeFocus);
        compare(all(list, FocusRing).length, data.way.isByKey ? 1 : 0);
        keyClick(Qt.Key_Delete);
        compare(Bench.fileNames, left.filter(name => name !== data.next));
    }

    // Before the list has been laid out.
    function test_aKeyOrAPressFollowsARemovalAtOnce() {
        const last = row("c.mp4");
        mouseClick(button("a.mp4", "Remove from queue"));
        mousePress(last, 200, 20);
        keyClick(Qt.Key_Delete); // before the button is let go, too
        mouseRelease(view, 200, 20);
        compare(Bench.fileNames, ["b.mp4"]);
        mouseClick(button("b.mp4", "Move down"));
        keyClick(Qt.Key_Delete);
        compare(Bench.fileNames, []);
    }

    function test_whileConverting() {
        Bench.chooseRealDestination();
        Bench.willStayAt([0.5]);
        button("a.mp4", "Move down").forceActiveFocus(Qt.TabFocusReason);
        verify(Bench.convert());
        settle();
        jobs.clear();
        compare(all(row("a.mp4"), SymbolButton), []);
        verify(row("a.mp4").activeFocus); // as the button has gone
        compare(all(row("b.mp4"), SymbolButton).length, 3);
        press("b.mp4", "Move down");
        press("c.mp4", "Move up");
        compare(Bench.fileNames, names);
        compare(jobs.count, 0);
        press("b.mp4", "Remove from queue");
        compare(Bench.fileNames, ["a.mp4", "c.mp4"]);
        verify(Bench.model.isConverting);
    }

    function test_colours() {
        const symbol = text => one(button("a.mp4", text), Symbol);
        inBothSchemes(() => {
            for (const text of ["Move up", "Move down"]) {
                compare(symbol(text).color, Theme.current.secondary);
                compare(symbol(text).opacity, 1);
            }
            const remove = symbol("Remove from queue");
            compare(remove.color, Theme.current.secondarySymbol);
            compare(remove.opacity, 0.7);
            // Fainter than the others all the same.
            verify(Pixels.contrast(remove, remove.color)
                   < Pixels.contrast(symbol("Move up"), Theme.current.secondary));
        });
    }

    function test_answersThePointer_data() {
        return [
            {"tag": "Move up", "atRest": 1},
            {"tag": "Remove from queue", "atRest": 0.7},
        ];
    }

    function test_answersThePointer(data) {
        const pressed = button("b.mp4", data.tag);
        const symbol = one(pressed, Symbol);
        compare(symbol.opacity, data.atRest);
        mouseMove(pressed, pressed.width / 2, pressed.height / 2);
        tryCompare(symbol, "opacity", 1);
        mousePress(pressed, pressed.width / 2, pressed.height / 2);
        compare(symbol.opacity, 0.5);
        // Where it is let go it is no click.
        mouseMove(view, 20, 440, -1, Qt.LeftButton);
        mouseRelease(view, 20, 440);
        tryCompare(symbol, "opacity", data.atRest);
        compare(Bench.fileNames, names);
    }

    function test_canBePressedBesideTheSymbol_data() {
        const data = [];
        for (const text of ["Move up", "Move down", "Remove from queue"]) {
            for (const [side, x, y] of [["left", 0, 0.5], ["right", 1, 0.5], ["above", 0.5, 0], ["below", 0.5, 1]])
                data.push({"tag": text + ", " + side, "text": text, "x": x, "y": y});
        }
        return data;
    }

    // In 24 by 24 at least, though what is drawn is smaller.
    function test_canBePressedBesideTheSymbol(data) {
        const pressed = button("b.mp4", data.text);
        const reach = area(pressed);
        verify(reach.width >= 24 && reach.height >= 24, reach);
        compareArea(one(pressed, Symbol), area(one(pressed, Symbol)).x, middle(pressed) - 8, 16, 16);
        jobs.clear();
        mouseClick(view, reach.x + data.x * (reach.width - 1), reach.y + data.y * (reach.height - 1));
        compare(jobs.count, 1);
        compare(Bench.fileNames, data.text === "Move up" ? ["b.mp4", "a.mp4", "c.mp4"]
                                 : data.text === "Move down" ? ["a.mp4", "c.mp4", "b.mp4"]
                                 : ["a.mp4", "c.mp4"]);
    }

    function test_noTargetCoversAnother() {
        const buttons = all(row("b.mp4"), SymbolButton);
        for (let i = 1; i < buttons.length; ++i)
            verify(gapBeside(buttons[i - 1], buttons[i]) >= 0, buttons[i].text);
        verify(gapBeside(one(row("b.mp4"), JobText), buttons[0]) >= 0);
    }

    function test_theRingOfOneDoesNotCoverTheNext() {
        const buttons = all(row("a.mp4"), SymbolButton);
        compare(buttons.length, 3);
        for (const focused of buttons) {
            focused.forceActiveFocus(Qt.TabFocusReason);
            const ring = area(one(focused, FocusRing));
            const own = area(one(focused, Symbol));
            verify(ring.x < own.x && ring.y < own.y);
            for (const other of buttons.filter(button => button !== focused)) {
                const next = area(one(other, Symbol));
                verify(ring.x + ring.width <= next.x || next.x + next.width <= ring.x,
                       focused.text + " and " + other.text);
            }
        }
    }

    function test_tooltips() {
        for (const shown of all(row("a.mp4"), SymbolButton))
            compareTip(shown, shown.width / 2, shown.height / 2, shown.Accessible.name);
        const handle = symbolOf(row("a.mp4"), Symbol.Lines);
        compareTip(handle, 7, 7, "Drag to reorder");
    }

    function test_tooltipOfQueueingAgain() {
        Bench.chooseRealDestination();
        Bench.willComplete();
        Bench.willBeCancelled();
        verify(Bench.convert());
        settle();
        const again = button("a.mp4", "Queue this video again");
        verify(again.width >= 24 && again.height >= 24);
        compare(one(again, Symbol).width, 18);
        compareTip(again, again.width / 2, again.height / 2, "Queue this video again");
    }

    function test_clickOnTheHandleDoesNothing() {
        mouseClick(symbolOf(row("b.mp4"), Symbol.Lines));
        mouseClick(row("b.mp4"), 200, 20);
        compare(Bench.fileNames, names);
        compare(jobs.count, 0);
    }
}
