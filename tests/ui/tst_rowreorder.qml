// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtTest
import Quorvale
import Quorvale.Style
import Quorvale.Testing

// Rows that are dragged with the mouse.
JobListTest {
    id: test

    readonly property int rowHeight: 56

    name: "RowReorder"

    SignalSpy {
        id: jobs

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
        return Bench.fileNames.map(name => parseInt(name.slice(4)));
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

    function test_drop_data() {
        return [
            {"tag": "one down", "row": 2, "by": 1, "order": [1, 3, 2, 4, 5]},
            {"tag": "one up", "row": 2, "by": -1, "order": [2, 1, 3, 4, 5]},
            {"tag": "to the end", "row": 1, "by": 4, "order": [2, 3, 4, 5, 1]},
            {"tag": "to the beginning", "row": 5, "by": -4, "order": [5, 1, 2, 3, 4]},
            {"tag": "below the end", "row": 3, "by": 3.4, "order": [1, 2, 4, 5, 3]},
            {"tag": "hardly over half", "row": 2, "by": 0.6, "order": [1, 3, 2, 4, 5]},
            {"tag": "hardly under half", "row": 2, "by": 0.4, "order": [1, 2, 3, 4, 5]},
            {"tag": "there and back", "row": 2, "by": 0, "order": [1, 2, 3, 4, 5]},
        ];
    }

    function test_drop(data) {
        showRows(5);
        const dragged = row(data.row);
        const tops = [1, 2, 3, 4, 5].map(shownTop);
        drag(data.row, 30);
        dragOn(data.by * rowHeight - 30);
        compare(names(), [1, 2, 3, 4, 5]); // until it is let go
        letGo();
        compare(names(), data.order);
        compare(jobs.count, data.order.join() === "1,2,3,4,5" ? 0 : 1);
        compare(row(data.row), dragged);
        compare(lifted(), []);
        compare(Bench.openedPanels, []);
        tryTops(data.order, tops);
        for (const number of data.order)
            compare(row(number).opacity, 1);
    }

    function test_theOthersPartForIt() {
        showRows(5);
        const tops = [1, 2, 3, 4, 5].map(shownTop);
        drag(2, 2 * rowHeight);
        compare(row(2).opacity, 0);
        compare(lifted().length, 1);
        compare(lifted()[0].job.fileName, nameOf(2));
        tryTops([1, 3, 4, 5], [tops[0], tops[1], tops[2], tops[4]]);
        dragOn(-3 * rowHeight);
        tryTops([1, 3, 4, 5], [tops[1], tops[2], tops[3], tops[4]]);
        letGo();
        compare(names(), [2, 1, 3, 4, 5]);
        // At once: nothing jumps and comes back.
        [2, 1, 3, 4, 5].forEach((number, i) => fuzzyCompare(shownTop(number), tops[i], 0.51));
    }

    function test_theyGlide() {
        showRows(5);
        const top = shownTop(3);
        drag(2, 20);
        mouseMove(view, 216, pointerY + rowHeight, -1, Qt.LeftButton);
        verify(shownTop(3) > top - rowHeight + 1, "at once");
        tryTops([3], [top - rowHeight]);
        mouseRelease(view, 216, pointerY + rowHeight);
        settle();
        compare(names(), [1, 3, 2, 4, 5]);
    }

    function test_theyJumpWhereNothingIsToMove() {
        Bench.animates = false;
        showRows(5);
        const top = shownTop(3);
        drag(2, 20);
        mouseMove(view, 216, pointerY + rowHeight, -1, Qt.LeftButton);
        compare(shownTop(3), top - rowHeight);
        mouseRelease(view, 216, pointerY + rowHeight);
    }

    // Without a stop on the way, where the rows have said so already.
    function test_reachesTheEndsInOneMovement_data() {
        return [
            {"tag": "above the first", "row": 3, "to": -100, "order": [3, 1, 2]},
            {"tag": "below the last", "row": 1, "to": 400, "order": [2, 3, 1]},
        ];
    }

    function test_reachesTheEndsInOneMovement(data) {
        showRows(3);
        drag(data.row, 10);
        pointerY = data.to;
        mouseMove(view, 216, pointerY, -1, Qt.LeftButton);
        letGo();
        compare(names(), data.order);
    }

    function test_thePictureFollowsThePointer() {
        showRows(5);
        const start = shownTop(2);
        drag(2, 70);
        const picture = lifted()[0];
        fuzzyCompare(area(picture).y, start + 70, 1.01);
        compare(area(picture).x, area(row(1)).x);
        compare([picture.width, picture.height], [row(1).width, row(1).height]);
        compare(texts(picture), texts(row(2)));
        dragOn(25);
        fuzzyCompare(area(picture).y, start + 95, 1.01);
        letGo();
    }

    function test_escapePutsItBack() {
        showRows(5);
        const tops = [1, 2, 3, 4, 5].map(shownTop);
        drag(1, 3 * rowHeight);
        keyClick(Qt.Key_Escape);
        compare(lifted(), []);
        compare(row(1).opacity, 1);
        dragOn(20);
        compare(lifted(), []);
        letGo();
        compare(names(), [1, 2, 3, 4, 5]);
        compare(jobs.count, 0);
        tryTops([1, 2, 3, 4, 5], tops);
        // And the next drag is like the first.
        drag(1, rowHeight);
        letGo();
        compare(names(), [2, 1, 3, 4, 5]);
    }

    function test_aDialogPutsItBack() {
        showRows(5);
        const tops = [1, 2, 3, 4, 5].map(shownTop);
        drag(1, 2 * rowHeight);
        compare(lifted().length, 1);
        verify(Bench.interruptByDialog());
        compare(lifted(), []);
        compare(row(1).opacity, 1);
        tryTops([1, 2, 3, 4, 5], tops);
        // The button is still held.
        dragOn(rowHeight);
        compare(lifted(), []);
        letGo();
        compare(names(), [1, 2, 3, 4, 5]);
        compare(jobs.count, 0);
        // And the next drag is like the first.
        drag(1, rowHeight);
        compare(lifted().length, 1);
        letGo();
        compare(names(), [2, 1, 3, 4, 5]);
    }

    function test_aSmallMovementIsNoDrag() {
        showRows(3);
        drag(1, 4);
        compare(lifted(), []);
        letGo();
        verify(list().interactive); // it scrolls on
        compare(jobs.count, 0);
    }

    function test_doesNothingWhileConverting() {
        showRows(5);
        Bench.chooseRealDestination();
        Bench.willStayAt([0.5]);
        verify(Bench.convert());
        settle();
        jobs.clear();
        drag(3, rowHeight);
        compare(lifted(), []);
        compare(row(3).opacity, 1);
        letGo();
        compare(names(), [1, 2, 3, 4, 5]);
        compare(jobs.count, 0);
    }

    function test_endsWhenABatchStarts() {
        showRows(5);
        drag(3, rowHeight);
        compare(lifted().length, 1);
        Bench.chooseRealDestination();
        Bench.willStayAt([0.5]);
        verify(Bench.convert());
        compare(lifted(), []);
        letGo();
        verify(list().interactive); // it scrolls on
        compare(names(), [1, 2, 3, 4, 5]);
        compare(row(3).opacity, 1);
    }

    function test_worksAgainAfterABatch() {
        showRows(2);
        Bench.chooseRealDestination();
        Bench.willComplete();
        Bench.willFail("No.");
        verify(Bench.convert());
        settle();
        drag(1, rowHeight + 20);
        letGo();
        compare(names(), [2, 1]);
    }

    function test_endsWhenItsRowGoes() {
        showRows(5);
        drag(3, rowHeight);
        Bench.model.remove(row(3).job.id);
        tryVerify(() => lifted().length === 0);
        letGo();
        compare(names(), [1, 2, 4, 5]);
    }

    function test_endsWhenAllRowsAreShownAnew() {
        showRows(2100);
        Bench.completeEverySecond();
        settle();
        drag(3, rowHeight);
        compare(lifted().length, 1);
        Bench.model.clearCompleted(); // too many at once to be followed
        compare(Bench.model.jobCount, 1050);
        tryVerify(() => lifted().length === 0);
        const order = names();
        letGo();
        compare(names(), order);
    }

    function test_aRowThatGoesDoesNotDisturbIt() {
        showRows(5);
        drag(3, rowHeight);
        Bench.model.remove(row(1).job.id);
        settle();
        compare(lifted().length, 1);
        compare(row(3).opacity, 0);
        letGo();
        // To the place that it is over, which is another row's now.
        compare(names(), [2, 4, 5, 3]);
        compare([2, 4, 5, 3].map(number => row(number).opacity), [1, 1, 1, 1]);
    }

    function test_aRowThatIsMovedByAKeyDoesNotDisturbIt_data() {
        return [
            {"tag": "from below to above", "moved": 5, "key": "Move up", "times": 4, "order": [5, 1, 3, 2, 4]},
            {"tag": "from above to below", "moved": 1, "key": "Move down", "times": 4, "order": [3, 4, 5, 2, 1]},
            {"tag": "itself", "moved": 2, "key": "Move down", "times": 3, "order": [1, 3, 4, 2, 5]},
        ];
    }

    function test_aRowThatIsMovedByAKeyDoesNotDisturbIt(data) {
        showRows(5);
        const button = one(row(data.moved), SymbolButton, b => b.text === data.key);
        drag(2, 2 * rowHeight);
        for (let i = 0; i < data.times; ++i) {
            button.forceActiveFocus(Qt.TabFocusReason);
            keyClick(Qt.Key_Space);
        }
        settle();
        compare(lifted().length, 1);
        letGo();
        compare(names(), data.order);
        compare(names().map(number => row(number).opacity), [1, 1, 1, 1, 1]);
    }

    // Before the window has had the time to show what has changed.
    function test_isTheSameRowWhenItIsLetGoAtOnce() {
        showRows(5);
        drag(2, 2 * rowHeight);
        Bench.model.moveJob(row(5).job.id, -4);
        mouseRelease(view, 216, pointerY);
        compare(names(), [5, 1, 3, 2, 4]);
    }

    function test_newRowsDoNotDisturbIt() {
        showRows(3);
        drag(1, rowHeight);
        Bench.queue(["clip9.mov"]);
        compare(lifted().length, 1);
        letGo();
        compare(names(), [2, 1, 3, 9]);
    }

    function test_partsRowsThatComeBelowIt() {
        showRows(3);
        const tops = [1, 2, 3].map(shownTop);
        drag(1, 3 * rowHeight);
        tryTops([2, 3], [tops[0], tops[1]]);
        Bench.queue(["clip8.mov", "clip9.mov"]);
        settle();
        tryTops([2, 3, 8, 9], [tops[0], tops[1], tops[2], tops[2] + 2 * rowHeight]);
        letGo();
        compare(names(), [2, 3, 8, 1, 9]);
    }

    function test_scrollsAtTheEdges() {
        showRows(60);
        drag(1, 20);
        dragTo(pointerY, 450);
        tryVerify(() => list().contentY > 600, 5000);
        compare(lifted().length, 1);
        verify(area(lifted()[0]).y + rowHeight <= 460.5);
        dragTo(450, 230);
        wait(40);
        const still = list().contentY;
        wait(60);
        compare(list().contentY, still);
        dragTo(230, 5);
        tryVerify(() => list().atYBeginning, 5000);
        dragTo(5, 450);
        tryVerify(() => list().contentY > 600, 5000);
        dragTo(450, 230);
        letGo();
        const at = names().indexOf(1);
        verify(at >= 10, at);
        compare(jobs.count, 1);
        compare(names().filter(number => number !== 1), Array.from({"length": 59}, (_, i) => i + 2));
        // It lies where it was let go.
        fuzzyCompare(shownTop(1) + rowHeight / 2, 230, rowHeight);
    }

    function test_aQuickDragMovesTheRowAlone() {
        showRows(40);
        const still = list().contentY;
        const start = shownTop(6) + rowHeight / 2;
        mousePress(view, 216, start);
        for (let i = 1; i <= 4; ++i)
            mouseMove(view, 216, start - i * rowHeight / 2, 5, Qt.LeftButton);
        pointerY = start - 2 * rowHeight;
        wait(200);
        compare(list().contentY, still);
        letGo();
        wait(200);
        compare(list().contentY, still);
        compare(names().slice(0, 7), [1, 2, 3, 6, 4, 5, 7]);
        verify(list().interactive); // it scrolls on
    }

    function test_goesWithTheWheel() {
        showRows(60);
        drag(2, 20);
        dragTo(pointerY, 230);
        for (const turn of [-3, 1]) {
            const former = list().contentY;
            for (let i = 0; i < Math.abs(turn); ++i)
                mouseWheel(view, 216, 230, 0, 120 * Math.sign(turn), Qt.LeftButton);
            tryVerify(() => list().contentY !== former && !list().moving);
        }
        verify(list().contentY > rowHeight, list().contentY);
        compare(lifted().length, 1);
        letGo();
        verify(names().indexOf(2) > 4, names().indexOf(2));
        fuzzyCompare(shownTop(2) + rowHeight / 2, 230, rowHeight / 2 + 1);
    }

    function test_scrollsToTheVeryEnd() {
        showRows(30);
        drag(1, 20);
        dragTo(pointerY, 455);
        tryVerify(() => list().atYEnd, 5000);
        wait(50);
        letGo();
        compare(names()[29], 1);
        verify(list().atYEnd);
    }

    function test_doesNotScrollAShortList() {
        showRows(3);
        const still = list().contentY;
        drag(1, 20);
        dragTo(pointerY, 455);
        wait(100);
        compare(list().contentY, still);
        letGo();
        compare(names(), [2, 3, 1]);
    }

    function test_buttonsAreNoHandles() {
        showRows(3);
        const remove = one(row(1), SymbolButton, b => b.text === "Remove from queue");
        mouseClick(remove);
        compare(names(), [2, 3]);
        verify(list().interactive); // it scrolls on
    }

    function test_theRowIsTheCurrentOneWhereItIsLetGo() {
        showRows(5);
        drag(2, 2 * rowHeight);
        letGo();
        compare(names(), [1, 3, 4, 2, 5]);
        verify(row(2).activeFocus);
        compare([list().currentItem, list().currentIndex], [row(2), 3]);
        keyClick(Qt.Key_Delete);
        compare(names(), [1, 3, 4, 5]);
    }
}
